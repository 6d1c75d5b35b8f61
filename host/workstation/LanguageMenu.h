#pragma once

#include <QObject>

class QMenu;
class QSettings;

/// The choice of the operator's language: a menu with the languages' own names, and the setting behind it.
///
/// A choice is for the next start, since windows keep the words that they were made with.
class LanguageMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills `menu`, which owns this. `settings` is not owned.
    LanguageMenu(QMenu& menu, QSettings& settings);

    /// What was stored; empty: nothing.
    [[nodiscard]] static QString Stored(const QSettings& settings);

private:
    void Choose(const QString& language);

    QSettings& m_settings;
};
