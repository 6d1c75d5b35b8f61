#pragma once

#include <QAccessible>

#include <functional>

/// What the controls of this folder have to do with assistive programs.

/// Makes these controls, and combo boxes under their own names, known to assistive programs. To be called
/// before the first of them is made; again it does nothing.
void OfferAccessibleControls();

/// Whether an assistive program listens, so that it is worth telling it anything.
[[nodiscard]] bool AssistiveProgramListens();
void TellAssistivePrograms(QAccessibleEvent& event);

/// Who is told, in place of Qt's bridge, which no test can read; null: the bridge.
using AssistiveListener = std::function<void(const QAccessibleEvent& event)>;
void SetAssistiveListener(AssistiveListener listener);
