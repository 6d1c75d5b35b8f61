#pragma once

#include <QWidget>

#include <functional>

class QDialog;
class T4ZelkaBrowser;

/// How long a window may take to paint itself, in milliseconds.
constexpr int PaintMs = 150;

// What the pictures need to bring windows into the state that they show. What is missing ends the program.

template <typename Object>
Object& Find(QWidget& parent, const char* name)
{
    auto* found = parent.findChild<Object*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

/// Clicks on an entry.
void SelectEntry(T4ZelkaBrowser& browser, const char* tree, const QString& text, bool isNode);

/// Runs `work` on the modal dialog that what follows opens.
void InNextDialog(std::function<void(QDialog& dialog)> work);

/// Lets events run until `done` or for half a minute.
void WaitUntil(const std::function<bool()>& done);
