#include "platform/controls/ElidedLabel.h"

#include <QTest>

/// A label that does not widen its window.
class TestElidedLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Text_Fits_IsShownWhole()
    {
        ElidedLabel label;
        label.SetFullText(QStringLiteral("Dbs.mdb"));
        label.resize(label.sizeHint());
        label.show();
        QCOMPARE(label.text(), QStringLiteral("Dbs.mdb"));
        QVERIFY(label.toolTip().isEmpty());
    }

    void Text_TooLong_LosesItsMiddle()
    {
        const QString text =
            QStringLiteral("/first") + QString(500, QLatin1Char('x')) + QStringLiteral("last");
        ElidedLabel label;
        label.SetFullText(text);
        QVERIFY(label.minimumSizeHint().width() < 200);
        label.resize(200, 30);
        label.show();
        QVERIFY(label.text().startsWith(QLatin1String("/first")) &&
                label.text().endsWith(QLatin1String("last")));
        QVERIFY(label.text().size() < 60);
        QCOMPARE(label.toolTip(), text);
        QCOMPARE(label.accessibleName(), text);
        QCOMPARE(label.FullText(), text);
    }

    void Label_Wider_ShowsMore()
    {
        ElidedLabel label;
        label.SetFullText(QString(100, QLatin1Char('x')));
        label.resize(100, 30);
        label.show();
        label.resize(2000, 30);
        QCOMPARE(label.text().size(), 100);
        QVERIFY(label.toolTip().isEmpty());
    }
};

QTEST_MAIN(TestElidedLabel)
#include "TestElidedLabel.moc"
