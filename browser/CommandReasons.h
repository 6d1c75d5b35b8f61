#pragma once

#include "platform/controls/DisabledReason.h"

#include <QObject>
#include <QString>

class QTabWidget;
class TreeView;

namespace Ui {
class BrowserControl;
}

/// Tells behind the tool tips of the control's commands and pages why they cannot be used, for as long as
/// they cannot.
///
/// It decides on nothing: it follows what the handlers enable, and looks at the selection and the rights for
/// the reason.
class CommandReasons : public QObject
{
public:
    /// `ui` outlives it.
    explicit CommandReasons(Ui::BrowserControl& ui);

    /// For what no control tells: the rights, and the database that is open.
    void Update();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] TreeView& ShownTree() const;
    /// First character of the selected entry's Key; null: nothing is selected.
    [[nodiscard]] QChar SelectedKind() const;
    [[nodiscard]] DisabledReason OfEntry() const;
    [[nodiscard]] DisabledReason OfAdd() const;
    [[nodiscard]] DisabledReason OfScan() const;
    [[nodiscard]] DisabledReason OfManage() const;
    [[nodiscard]] DisabledReason OfLoadMore() const;
    [[nodiscard]] DisabledReason OfDirectScan() const;

    Ui::BrowserControl& m_ui;
};
