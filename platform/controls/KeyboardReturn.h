#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QWidget>

/// Gives the keyboard back to the window below where dialogs have closed one upon the other: a window manager
/// that hands it to the upper of two which go at once leaves it with nobody.
///
/// It looks after all dialogs that had the keyboard when they closed, as long as it lives. Who works in
/// another program is left there.
class KeyboardReturn : public QObject
{
public:
    /// How long the window manager may take by itself, in milliseconds.
    static constexpr int PatienceMs = 100;

    KeyboardReturn();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// A window of this program has the keyboard.
    [[nodiscard]] virtual bool HasKeyboard() const;
    virtual void Activate(QWidget& window);

private:
    void Close(QObject* dialog);
    void GiveBack();

    QTimer m_patience;
    /// Dialogs that have the keyboard or are about to get it; only compared.
    QSet<const QObject*> m_withKeyboard;
    QPointer<QWidget> m_below;
};
