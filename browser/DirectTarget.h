#pragma once

#include <QString>

#include <functional>
#include <vector>

/// How the fields of the Direct tab become the node part of a target.

/// A field, the page that it stands on and the parameter that it gives.
struct DirectField
{
    int page;
    const char* waypoint;
    const char* name;
    const char* parameter;
    /// Digits alone can be typed.
    bool digitsOnly;
};

/// In the order of the target; the fields of one waypoint stand together.
[[nodiscard]] const std::vector<DirectField>& DirectFields();

/// Adds "WP=" and the name behind a comma where `text` is not empty, once per `done`.
void AddWpToTarget(QString& text, const QString& wpName, bool& done);
/// Adds name, "=" and value behind a comma where `text` is not empty.
void AddParamToTarget(QString& text, const QString& name, const QString& value);

/// The node part that the fields of one page make. Blank fields are left out, and a waypoint without others;
/// texts go in as they were typed. `textOf` gives the text of the field named so.
[[nodiscard]] QString ComposeNodeTarget(int page, const std::function<QString(const char* field)>& textOf);
