#pragma once

#include <QObject>

class QSettings;
class QWidget;

/// Remembers where the windows of a program stood and how large they were, each under its name, from one
/// showing and one run to the next; with them the splitters and the columns that the operator may move.
///
/// It looks after the main windows and the dialogs with a size grip, as long as it lives; no window needs to
/// know of it. A place that is not on any screen any more is moved onto one. What Qt or the window itself
/// asks for at least stays. Columns come back only wider than the window makes them by itself, and only under
/// the font that they were set for.
class WindowPlaces : public QObject
{
public:
    /// `settings` is not owned; the places go into its group "Windows".
    explicit WindowPlaces(QSettings& settings);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Restore(QWidget& window) const;
    void Store(const QWidget& window) const;

    QSettings& m_settings;
};
