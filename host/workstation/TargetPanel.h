#pragma once

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class TargetPanel;
}

/// Shows what the control answers when its host asks for the target, and copies it.
///
/// The panel asks when it is told to and never by itself.
class TargetPanel : public QWidget
{
    Q_OBJECT

public:
    /// Gives the target; False: there is none, the text then empty when it is refused and untouched when the
    /// question itself failed.
    using Reader = std::function<bool(QString& target)>;

    explicit TargetPanel(QWidget* parent = nullptr);
    ~TargetPanel() override;

    void SetReader(Reader reader);
    /// The target of the last reading; empty when there was none.
    [[nodiscard]] QString Target() const;

public Q_SLOTS:
    void ReadTarget();

Q_SIGNALS:
    /// After each reading, with the new Target.
    void TargetRead(const QString& target);

private:
    void cmdCopy_Click();
    void Show(const QString& target, const QString& state, bool good);

    std::unique_ptr<Ui::TargetPanel> m_ui;
    Reader m_reader;
};
