#pragma once

namespace Ui {
class T4ZelkaBrowser;
}

/// Takes the labels of the Direct page's fields from the definitions of the database; one that cannot be
/// looked up stays.
void InitializeDirectLabels(const Ui::T4ZelkaBrowser& ui);
