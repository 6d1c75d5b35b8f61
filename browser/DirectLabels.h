#pragma once

namespace Ui {
class BrowserControl;
}

/// Takes the labels of the Direct page's fields from the definitions of the database; one that cannot be
/// looked up stays.
void InitializeDirectLabels(const Ui::BrowserControl& ui);
