#pragma once

#include <QObject>
#include <QString>

class QAction;
class QLineEdit;

/// Marks a text box whose text is wrong, while it is typed: in another colour, with a sign at its end, and
/// with the reason in its tool tip and its description. It never interrupts.
class ProblemMark : public QObject
{
public:
    /// The box is not owned; the mark goes before it or with it.
    explicit ProblemMark(QLineEdit& box);

    /// Empty: nothing is wrong.
    void Show(const QString& problem);
    [[nodiscard]] QString Problem() const { return m_problem; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowColor();

    QLineEdit& m_box;
    QAction* m_sign = nullptr;
    QString m_problem;
    QString m_usualTip;
    QString m_usualDescription;
    bool m_colouring = false;
};
