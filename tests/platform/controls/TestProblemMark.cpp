#include "platform/controls/Contrast.h"
#include "platform/controls/ProblemMark.h"
#include "platform/controls/Theme.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

/// The mark of a text that is wrong.
class TestProblemMark : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_box = std::make_unique<QLineEdit>();
        m_box->setToolTip(QStringLiteral("A target"));
        m_mark = std::make_unique<ProblemMark>(*m_box);
    }
    void cleanup()
    {
        m_mark.reset();
        m_box.reset();
        ApplyTheme(Theme::System);
    }

    void Show_Problem_ColoursAndTells()
    {
        const QColor usual = m_box->palette().color(QPalette::Text);
        m_mark->Show(QStringLiteral("No name."));
        QVERIFY(m_box->palette().color(QPalette::Text) != usual);
        QCOMPARE(m_box->toolTip(), QStringLiteral("No name."));
        QCOMPARE(m_box->accessibleDescription(), QStringLiteral("No name."));
        QVERIFY(Sign() && Sign()->isVisible() && !Sign()->icon().isNull());
        QCOMPARE(Sign()->toolTip(), QStringLiteral("No name."));
    }

    void Show_Mended_LeavesNothing()
    {
        const QPalette usual = m_box->palette();
        m_mark->Show(QStringLiteral("No name."));
        m_mark->Show(QString());
        QCOMPARE(m_box->palette().color(QPalette::Text), usual.color(QPalette::Text));
        QCOMPARE(m_box->toolTip(), QStringLiteral("A target"));
        QVERIFY(m_box->accessibleDescription().isEmpty());
        QVERIFY(!Sign()->isVisible());
    }

    void Show_AnyTheme_CanBeRead_data()
    {
        QTest::addColumn<QString>("theme");
        for (const QString& name : ThemeNames())
            QTest::newRow(qPrintable(name)) << name;
    }
    void Show_AnyTheme_CanBeRead()
    {
        QFETCH(const QString, theme);
        m_mark->Show(QStringLiteral("No name."));
        ApplyTheme(*ThemeOfName(theme));
        const QColor usual = ThemePalette(*ThemeOfName(theme)).color(QPalette::Text);
        const auto contrast = [this] {
            const QPalette palette = m_box->palette();
            return ContrastRatio(palette.color(QPalette::Text), palette.color(QPalette::Base));
        };
        QTRY_COMPARE(m_box->palette().color(QPalette::Base),
                     ThemePalette(*ThemeOfName(theme)).color(QPalette::Base));
        QTRY_VERIFY(contrast() >= TextContrast);
        QVERIFY(m_box->palette().color(QPalette::Text) != usual);
    }

private:
    [[nodiscard]] QAction* Sign() const { return m_mark->findChild<QAction*>(QStringLiteral("mnuProblem")); }

    std::unique_ptr<QLineEdit> m_box;
    std::unique_ptr<ProblemMark> m_mark;
};

QTEST_MAIN(TestProblemMark)
#include "TestProblemMark.moc"
