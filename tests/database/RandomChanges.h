#pragma once

#include "tests/database/PatchedTrees.h"

class UnitOfWork;

/// Random changes of the records that trees show: by another application, which the trees learn of by the
/// Journal alone, and by saves of the control itself, which patch the trees at once.
///
/// Few names that differ in case and collide often, among them the texts of roots and waypoints. What the
/// database refuses changes nothing.
class RandomChanges
{
public:
    explicit RandomChanges(PatchedTrees& trees) : m_trees(trees) {}

    void ByAnother();
    void ByOneself();

private:
    [[nodiscard]] QString AnyName(const QStringList& names);
    [[nodiscard]] QString AnyConnectionName();
    [[nodiscard]] QString AnyNodeName();
    /// Connection of a node.
    [[nodiscard]] QString AnyHome();
    [[nodiscard]] QString AnyConnectionTarget();
    [[nodiscard]] QString AnyNodeTarget();
    void ChangeStore();
    [[nodiscard]] bool SaveAConnection();
    [[nodiscard]] bool SaveANode();
    [[nodiscard]] bool RemoveSomething();

    PatchedTrees& m_trees;
};
