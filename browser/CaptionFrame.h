#pragma once

#include <QGroupBox>

/// A group box whose caption comes from data: shown as it is, "&" included, and cut to the room there is, so
/// that a long name never widens the window. What was cut is in the tool tip.
class CaptionFrame : public QGroupBox
{
    Q_OBJECT

public:
    explicit CaptionFrame(QWidget* parent = nullptr);

    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowCaption();

    QString m_caption;
};
