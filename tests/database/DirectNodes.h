#pragma once

#include "tests/database/SaveFixture.h"

/// What the Direct tab and a scan do before a node of theirs is saved.
namespace DirectNodes {

/// The node target that Load composes.
extern const QString Target;
/// The connection target that Compose composes.
extern const QString NewConnectionTarget;

/// DirectObject is a connection of the database with the node that a scan found there: address 99, time-out
/// 3000, 5 repeats, no name, the id of its class where the dialog expects it. Forgets what was recorded.
void Choose(SaveFixture& fixture, const QString& conName);
/// DirectObject and NewDirectObject are a connection that exists on the Direct tab alone, a T4 Bus with the
/// number 77, with that node.
void Compose(SaveFixture& fixture, const QString& conName);
/// The class of the node and its values, as the dialog loads them; manager 1, tail "-port 9".
void Load(SaveFixture& fixture);

bool Save(SaveFixture& fixture, const QString& name);

} // namespace DirectNodes
