#pragma once

#include <QIcon>

#include <array>
#include <functional>

class QWidget;

/// The module-level state of the definition dialogs: one instance in the process, shared by all controls.
struct DialogState
{
    /// Parameter row on which the waypoint dialog opens; 0: the first.
    int SelectedWpIndex = 0;
    /// Pictures of the connection types, by picture index; filled by the control.
    std::array<QIcon, 20> ConPictures;
    /// Gives the picture of a type where ConPictures has none, as while the control is hidden; handed in by
    /// the control.
    std::function<QIcon(int pictureIndex)> PictureOfType;
    /// Shows the manager form over a window; handed in by the control.
    std::function<void(QWidget* parent)> ShowManagerInfo;
};

/// The one instance.
DialogState& Dialogs();

/// The picture of a connection type as the dialogs show it, scaled for `widget`; the one of unknown
/// connections where there is none.
[[nodiscard]] QPixmap ConPicturePixmap(int pictureIndex, const QWidget& widget);
