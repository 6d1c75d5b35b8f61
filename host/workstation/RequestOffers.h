#pragma once

class QComboBox;

/// Fills an editable box with the requests that every node answers. Choosing one puts the request into the
/// box; the list tells in words what each asks for.
void OfferRequests(QComboBox& box);
