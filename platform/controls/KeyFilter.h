#pragma once

#include <QObject>

/// Passes each character that is typed into a text box through a procedure, which may drop it.
///
/// Characters alone: keys that move, delete or copy go their own way. The filter goes with its parent.
class KeyFilter : public QObject
{
public:
    /// Gives the code of the character to take; 0: none.
    using Filter = int (*)(int keyCode);

    explicit KeyFilter(Filter filter, QObject* parent) : QObject(parent), m_filter(filter) {}

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Filter m_filter;
};
