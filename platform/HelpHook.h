#pragma once

#include <QString>

#include <functional>

/// How the control and its dialogs reach the online help; empty as long as the program has none.
struct HelpHook
{
    /// Shows a topic such as "Zelka_Connection_Tool_Overview.htm#DatabaseTab1".
    std::function<void(const QString& topic)> ShowHelpTopic;
    /// The help file's path.
    std::function<QString()> HelpFilePath;
};

/// The hook in force.
HelpHook& Help();

/// Shows a topic where there is a help to show it.
void ShowHelpTopic(const QString& topic);
