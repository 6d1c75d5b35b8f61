#pragma once

#include "tests/browser/RefreshedControl.h"

/// A control whose database goes away and comes back. The procedures say what is wrong; empty: nothing.
class AwayDatabase : public RefreshedControl
{
public:
    explicit AwayDatabase(const QString& source = QString()) : RefreshedControl(source)
    {
        ShowRealDialogs();
        Machine().WallClock = [this] { return Now; };
        Machine().ShowBusyPointer = [this](bool busy) { m_pointerBusy = busy; };
        Machine().StartProgram = [](const QString&, const QStringList&) { return true; };
        Control->SetManageVisible(true);
        ClickConnection(QStringLiteral("Alpha"));
        Click("tvwConTree", QStringLiteral("North"), true);
        Tick();
        // What a command asks is agreed to, but for another try.
        Operator.WhileOpen = [this](const RecordedBox& box) {
            const int buttons = box.flags & BoxFlags::ButtonMask;
            Operator.Answers = {buttons == BoxFlags::YesNo      ? BoxAnswer::Yes
                                : buttons == BoxFlags::OkCancel ? BoxAnswer::Cancel
                                                                : BoxAnswer::Ok};
        };
    }

    QDateTime Now{QDate(2031, 5, 6), QTime(7, 8)};

    /// It is away: before, it was whole.
    QString ProblemWhileAway()
    {
        QStringList problems;
        const QStringList before = Shown();
        const QString since = QStringLiteral("As of ") + QLocale().toString(Now.time(), QLocale::ShortFormat);
        Operator.Boxes.clear();
        for (int tick = 0; tick < 2; ++tick) {
            Now = Now.addSecs(60);
            Tick();
            if (!Operator.Boxes.empty())
                problems << QStringLiteral("a tick tells ") + Operator.Texts().join(u'/');
        }
        if (!Line().isVisible() || !Line().text().startsWith(since))
            problems << QStringLiteral("the line tells \"%1\"").arg(Line().text());
        for (const char* button : {"cmdDatabaseAdd", "cmdDatabaseProp", "cmdDatabaseRemove",
                                   "cmdDatabaseManage", "cmdLoadMore", "cmdRefresh"})
            problems << ProblemOf(button);
        if (Shown() != before)
            problems << QStringLiteral("the trees change\n") + Shown().join(u'\n');
        problems.removeAll(QString());
        return problems.join(u'\n');
    }
    /// It is back. `mayLoad`: the position in the Journal could not be read, so that a load is due.
    QString ProblemWhenBack(bool mayLoad = false)
    {
        QStringList problems{ProblemAtRest("the refresh")};
        Operator.Boxes.clear();
        Tick();
        if (!Operator.Boxes.empty() && !(mayLoad && Operator.Texts() == QStringList(ReloadText())))
            problems << QStringLiteral("the refresh tells ") + Operator.Texts().join(u'/');
        if (Line().isVisible())
            problems << QStringLiteral("the line stays");
        problems << Difference();
        // Nobody holds the database.
        AddNode("Behind");
        Tick();
        problems << Difference();
        problems.removeAll(QString());
        return problems.join(u'\n');
    }

private:
    QString ProblemOf(const char* button)
    {
        auto& pressed = Find<QPushButton>(button);
        pressed.setEnabled(true);
        Operator.Boxes.clear();
        pressed.click();
        const QString name = QString::fromLatin1(button);
        // What could not be read anew leaves its connection selected.
        const QStringList told =
            CommandTexts::Told() +
            QStringList(QStringLiteral("Only nodes can be used to launch a manager, select a node from the "
                                       "tree."));
        for (const QString& text : Operator.Texts()) {
            if (!told.contains(text))
                return name + QStringLiteral(" tells ") + text;
        }
        const bool mayBeSilent = name == QLatin1String("cmdRefresh");
        if (Operator.Boxes.empty() && !mayBeSilent)
            return name + QStringLiteral(" tells nothing");
        return ProblemAtRest(name);
    }
    [[nodiscard]] QString ProblemAtRest(const QString& name) const
    {
        if (Browser().Busy != 0 || QApplication::activeModalWidget())
            return name + QStringLiteral(" does not end");
        if (m_pointerBusy)
            return name + QStringLiteral(" leaves the pointer busy");
        return TimerOn() ? QString() : name + QStringLiteral(" leaves the timer off");
    }

    bool m_pointerBusy = false;
};
