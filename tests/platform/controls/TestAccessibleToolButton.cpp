#include "platform/controls/AccessibleControls.h"

#include <QAccessible>
#include <QTest>
#include <QToolButton>

/// A tool button as assistive programs know it.
class TestAccessibleToolButton : public QObject
{
    Q_OBJECT

private:
    static QAccessibleInterface& Of(QToolButton& button)
    {
        QAccessibleInterface* known = QAccessible::queryAccessibleInterface(&button);
        if (!known)
            qFatal("The button is not known.");
        return *known;
    }
    static void Press(QToolButton& button)
    {
        Of(button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }

private Q_SLOTS:
    void initTestCase() { OfferAccessibleControls(); }

    void Press_Asked_HappensBehindTheAnswer()
    {
        QToolButton button;
        int presses = 0;
        connect(&button, &QToolButton::clicked, this, [&] { ++presses; });
        Press(button);
        QCOMPARE(presses, 0);
        QCoreApplication::processEvents();
        QCOMPARE(presses, 1);
    }
    void Press_Disabled_DoesNothing()
    {
        QToolButton button;
        button.setEnabled(false);
        int presses = 0;
        connect(&button, &QToolButton::clicked, this, [&] { ++presses; });
        Press(button);
        QCoreApplication::processEvents();
        QCOMPARE(presses, 0);
    }
    void Press_ButtonGoneMeanwhile_DoesNoHarm()
    {
        int presses = 0;
        {
            QToolButton button;
            connect(&button, &QToolButton::clicked, this, [&] { ++presses; });
            Press(button);
        }
        QCoreApplication::processEvents();
        QCOMPARE(presses, 0);
    }
    void Name_NoneOfItsOwn_IsItsText()
    {
        QToolButton button;
        button.setText("&Larger");
        QCOMPARE(Of(button).text(QAccessible::Name), QStringLiteral("Larger"));
        button.setAccessibleName("Larger letters");
        QCOMPARE(Of(button).text(QAccessible::Name), QStringLiteral("Larger letters"));
        QCOMPARE(Of(button).role(), QAccessible::Button);
    }
    void State_Checkable_TellsWhetherItIsChecked()
    {
        QToolButton button;
        QVERIFY(!Of(button).state().checkable);
        button.setCheckable(true);
        QVERIFY(Of(button).state().checkable && !Of(button).state().checked);
        button.setChecked(true);
        QVERIFY(Of(button).state().checked);
    }
};

QTEST_MAIN(TestAccessibleToolButton)
#include "TestAccessibleToolButton.moc"
