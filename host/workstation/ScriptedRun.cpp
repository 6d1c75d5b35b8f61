#include "host/workstation/ScriptedRun.h"

#include "browser/T4ZelkaBrowser.h"
#include "database/DatabaseState.h"
#include "host/workstation/ConsolePanel.h"
#include "host/workstation/TargetPanel.h"
#include "host/workstation/WorkstationOptions.h"
#include "host/workstation/WorkstationWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>
#include <QPixmap>
#include <QTabBar>
#include <QTabWidget>

#include <cstdio>
#include <utility>

namespace {

constexpr int DatabasePage = 0;
constexpr int DirectPage = 1;

void Tell(const QString& text)
{
    std::fprintf(stderr, "zelka-workstation: %s\n", qUtf8Printable(text));
}

template <typename Widget>
Widget* Find(const WorkstationWindow& window, const char* name)
{
    return window.Control()->findChild<Widget*>(QLatin1String(name));
}

void SendMouse(QWidget& widget, QEvent::Type type, const QPoint& place)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void Click(QWidget& widget, const QPoint& place)
{
    SendMouse(widget, QEvent::MouseButtonPress, place);
    SendMouse(widget, QEvent::MouseButtonRelease, place);
    QCoreApplication::processEvents();
}

void DoubleClick(QWidget& widget, const QPoint& place)
{
    Click(widget, place);
    SendMouse(widget, QEvent::MouseButtonDblClick, place);
    SendMouse(widget, QEvent::MouseButtonRelease, place);
    QCoreApplication::processEvents();
}

/// Where the entry is to be clicked, after it was brought into view.
QPoint PlaceOf(QAbstractItemView& view, const QModelIndex& entry)
{
    view.scrollTo(entry);
    return view.visualRect(entry).center();
}

QModelIndex FirstBelowRoot(const QAbstractItemView& view)
{
    const QAbstractItemModel* model = view.model();
    return model ? model->index(0, 0, model->index(0, 0)) : QModelIndex();
}

} // namespace

ScriptedRun::ScriptedRun(WorkstationWindow& window, QString folder)
    : m_window(window), m_folder(std::move(folder))
{}

int ScriptedRun::Run()
{
    Tell(QStringLiteral("screenshots in %1").arg(QDir::toNativeSeparators(m_folder)));
    if (!Database().DatabaseOpen) {
        ShowPage(DirectPage);
        TakePicture(QStringLiteral("direct.png"));
        Tell(QStringLiteral("no database was opened"));
        return ExitCode::DatabaseUnavailable;
    }

    ShowPage(DatabasePage);
    const bool worked = AskFirstNode();
    TakePicture(QStringLiteral("nodes.png"));
    ShowConnections();
    TakePicture(QStringLiteral("connections.png"));
    ShowPage(DirectPage);
    TakePicture(QStringLiteral("direct.png"));
    return worked && m_picturesTaken ? ExitCode::Done : ExitCode::Refused;
}

bool ScriptedRun::AskFirstNode()
{
    if (!SelectFirstNode()) {
        Tell(QStringLiteral("the database has no node"));
        return false;
    }
    const QString target = ReadTarget();
    if (target.isEmpty()) {
        Tell(QStringLiteral("the node has no valid target"));
        return false;
    }
    std::printf("%s\n", qUtf8Printable(target));
    return AskForIdentification();
}

bool ScriptedRun::SelectFirstNode()
{
    Find<QAbstractButton>(m_window, "optNodes")->click();
    auto* view = Find<QAbstractItemView>(m_window, "tvwNodesTree");
    const QModelIndex node = FirstBelowRoot(*view);
    if (!node.isValid())
        return false;
    Click(*view->viewport(), PlaceOf(*view, node));
    return true;
}

void ScriptedRun::ShowConnections()
{
    Find<QAbstractButton>(m_window, "optCon")->click();
    QCoreApplication::processEvents();
    auto* view = Find<QAbstractItemView>(m_window, "tvwConTree");
    const QModelIndex connection = FirstBelowRoot(*view);
    if (connection.isValid())
        DoubleClick(*view->viewport(), PlaceOf(*view, connection));
}

void ScriptedRun::ShowPage(int page)
{
    QTabBar* tabs = Find<QTabWidget>(m_window, "tabMain")->tabBar();
    Click(*tabs, tabs->tabRect(page).center());
}

QString ScriptedRun::ReadTarget()
{
    m_window.Panel().findChild<QAbstractButton*>(QStringLiteral("cmdReadTarget"))->click();
    return m_window.Panel().Target();
}

bool ScriptedRun::AskForIdentification()
{
    const std::optional<NodeTalk::Answer> answer = m_window.Console().Send(QStringLiteral("40"));
    if (!answer)
        return false;
    if (answer->good)
        std::printf("identification: %s\n", qUtf8Printable(answer->text.simplified()));
    else
        Tell(answer->text);
    return answer->good || answer->noNetwork;
}

void ScriptedRun::TakePicture(const QString& name)
{
    QCoreApplication::processEvents();
    const QString file = QDir(m_folder).filePath(name);
    if (m_window.grab().save(file))
        return;
    m_picturesTaken = false;
    Tell(QStringLiteral("cannot write %1").arg(QDir::toNativeSeparators(file)));
}
