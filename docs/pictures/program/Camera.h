#pragma once

#include <QString>

#include <functional>

class QDialog;
class QWidget;

/// Writes pictures of windows into one folder, all in one look.
class Camera
{
public:
    /// `look` ends the name of each picture's file.
    Camera(QString folder, QString look);

    /// Nothing has failed so far; what has was told on standard error.
    [[nodiscard]] bool AllTaken() const { return m_allTaken; }

    void Take(QWidget& widget, const QString& name) const;
    /// Runs `opening`, which shows a modal dialog, and `work` on that dialog once it has been painted; then,
    /// behind the picture, `end`, and cancels the dialog.
    void WithDialog(const std::function<void()>& opening, const QString& name,
                    const std::function<void(QDialog& dialog)>& work = {},
                    const std::function<void(QDialog& dialog)>& end = {}) const;

    /// Runs `opening`, which shows a modal window with a bar of progress and takes it away by itself, and
    /// takes that window once the bar is half full.
    void WithProgress(const std::function<void()>& opening, const QString& name) const;

private:
    void TellShown(bool shown, const QString& name) const;

    QString m_folder;
    QString m_look;
    mutable bool m_allTaken = true;
};
