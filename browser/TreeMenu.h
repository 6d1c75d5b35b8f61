#pragma once

#include <QObject>

class QPoint;
class TreeView;

namespace Ui {
class BrowserControl;
}

/// The context menus of the two trees: the commands of the Database page, and what can be copied of the
/// selected entry.
class TreeMenu : public QObject
{
public:
    /// `ui` outlives it.
    explicit TreeMenu(Ui::BrowserControl& ui);

private:
    void Open(TreeView& tree, const QPoint& place) const;

    Ui::BrowserControl& m_ui;
};
