#pragma once

#include "platform/ComponentWithLastError.h"

#include <QString>

/// Tells the operator in an error box why a component's call failed: `text`, then the component's own words
/// and codes, or, when it has none to give, the error that asking for them raised. Never fails.
void ReportComponentError(const QString& text, ComponentWithLastError& component);
