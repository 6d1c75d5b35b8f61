#pragma once

#include <QLabel>

/// A label that gives up the middle of its text rather than widen its window; the whole is in its tool tip
/// and its accessible name.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void SetFullText(const QString& text);
    [[nodiscard]] QString FullText() const { return m_fullText; }

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowText();

    QString m_fullText;
};
