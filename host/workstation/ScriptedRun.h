#pragma once

#include <QString>

class QAbstractItemView;
class QModelIndex;
class WorkstationWindow;

/// Works the window as an operator would, for machines without a display: selects the first node, has its
/// target read, asks the node there for its identification, and takes pictures of the pages.
///
/// Prints the target and the identification on standard output; whatever else there is to tell goes to
/// standard error.
class ScriptedRun
{
public:
    /// The window has been started and is shown. The folder exists.
    ScriptedRun(WorkstationWindow& window, QString folder);

    /// Gives the exit code.
    [[nodiscard]] int Run();

private:
    /// False: it has told why not.
    [[nodiscard]] bool AskFirstNode();
    [[nodiscard]] bool SelectFirstNode();
    void ShowConnections();
    void ShowPage(int page);
    [[nodiscard]] QString ReadTarget();
    /// False: the network is there and the node gave no identification.
    [[nodiscard]] bool AskForIdentification();
    void TakePicture(const QString& name);

    WorkstationWindow& m_window;
    QString m_folder;
    bool m_picturesTaken = true;
};
