#pragma once

class ConData;
class QWidget;

/// Nodes can only be saved under a connection that is in the database as it was when they were found.

/// Makes sure of that: where the connection of the scan, `direct`, exists only on the Direct tab or has
/// changed meanwhile, asks whether it may be saved, and shows its dialog. It may have another name
/// afterwards.
///
/// True: it is in the database; after a save `direct` is the saved connection and `newDirect` has its id and
/// no name. False: the operator has not saved it, or the host has destroyed `window`; `direct` is as it was.
[[nodiscard]] bool CheckScanConnection(ConData& direct, ConData& newDirect, QWidget* window);

/// Lets the operator complete and save `connection` as a new one through ConObject, which has the trees.
/// False: not saved, `direct` and `newDirect` are as they were.
[[nodiscard]] bool SaveScanConnection(const ConData& connection, ConData& direct, ConData& newDirect,
                                      QWidget* window);
