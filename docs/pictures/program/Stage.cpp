#include "docs/pictures/program/Stage.h"

#include "browser/T4ZelkaBrowser.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QTimer>

#include <utility>

void SelectEntry(T4ZelkaBrowser& browser, const char* tree, const QString& text, bool isNode)
{
    auto& view = Find<TreeView>(browser, tree);
    const auto& entries = static_cast<const TreeEntries&>(*view.model());
    const TreeEntries::Index entry = entries.FindByText(text, isNode);
    if (entry == 0)
        qFatal("there is no %s", qUtf8Printable(text));
    view.ClickEntry(entries.ModelIndex(entry));
    QApplication::processEvents();
}

void WaitUntil(const std::function<bool()>& done)
{
    constexpr int longestMs = 30'000;
    const QDeadlineTimer deadline(longestMs);
    while (!done() && !deadline.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, PaintMs);
}

void InNextDialog(std::function<void(QDialog& dialog)> work)
{
    QTimer::singleShot(PaintMs, [work = std::move(work)] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            work(*dialog);
    });
}
