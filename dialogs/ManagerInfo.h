#pragma once

class ConData;
class QWidget;

/// Shows the manager form over a window for the node of a working copy, which takes what the operator chose:
/// the device and the command line. Without a manager form nothing happens.
///
/// The form knows ConObject alone: for another working copy, ConObject carries its values meanwhile and has
/// its own back afterwards. False: the window is gone. Thread: the control's.
[[nodiscard]] bool ShowManagerInfo(ConData& con, QWidget& window);
