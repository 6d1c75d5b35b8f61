#pragma once

class QComboBox;
class QStringListModel;

/// Gives a list that can hold a million names: nothing of it is measured before it is seen, and
/// its drop-down shows some rows of it and scrolls. The list shows
/// `names`, which must outlive it or be its child.
void PrepareLongList(QComboBox& combo, QStringListModel& names);
