#include "platform/controls/DisabledReason.h"

#include <QPushButton>
#include <QSet>
#include <QTest>

/// What tool tips tell of disabled commands.
class TestDisabledReason : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReasonText_EachReason_IsASentenceOfItsOwn()
    {
        QSet<QString> texts;
        const int last = static_cast<int>(DisabledReason::NotConnected);
        for (int reason = 1; reason <= last; ++reason) {
            const QString text = ReasonText(static_cast<DisabledReason>(reason));
            QVERIFY2(text.endsWith(QLatin1Char('.')), qPrintable(QString::number(reason)));
            texts << text;
        }
        QCOMPARE(texts.size(), last);
        QVERIFY(ReasonText(DisabledReason::None).isEmpty());
    }

    void ShowReason_Reason_StandsBehindTheUsualTip()
    {
        QPushButton button;
        button.setToolTip(QStringLiteral("Remove it"));
        ShowReason(button, DisabledReason::NoEditRight);
        QCOMPARE(button.toolTip(), QStringLiteral("Remove it\n") + ReasonText(DisabledReason::NoEditRight));
        QCOMPARE(button.accessibleDescription(), button.toolTip());
    }

    void ShowReason_AnotherThenNone_LeavesTheUsualTip()
    {
        QPushButton button;
        button.setToolTip(QStringLiteral("Remove it"));
        button.setAccessibleDescription(QStringLiteral("Removes"));
        ShowReason(button, DisabledReason::NoEditRight);
        ShowReason(button, DisabledReason::NothingSelected);
        QVERIFY(!button.toolTip().contains(ReasonText(DisabledReason::NoEditRight)));
        QCOMPARE(button.accessibleDescription(),
                 QStringLiteral("Removes\n") + ReasonText(DisabledReason::NothingSelected));
        ShowReason(button, DisabledReason::None);
        QCOMPARE(button.toolTip(), QStringLiteral("Remove it"));
        QCOMPARE(button.accessibleDescription(), QStringLiteral("Removes"));
    }

    void ShowReason_NoUsualTip_IsTheTip()
    {
        QPushButton button;
        ShowReason(button, DisabledReason::NoTarget);
        QCOMPARE(button.toolTip(), ReasonText(DisabledReason::NoTarget));
        ShowReason(button, DisabledReason::None);
        QVERIFY(button.toolTip().isEmpty());
    }

    void OfferCommand_Reason_Disables()
    {
        QPushButton button;
        OfferCommand(button, DisabledReason::NoTarget);
        QVERIFY(!button.isEnabled());
        OfferCommand(button, DisabledReason::None);
        QVERIFY(button.isEnabled());
        QVERIFY(button.toolTip().isEmpty());
    }
};

QTEST_MAIN(TestDisabledReason)
#include "TestDisabledReason.moc"
