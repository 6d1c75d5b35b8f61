#include "platform/controls/ProblemMark.h"

#include "platform/controls/Contrast.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>

ProblemMark::ProblemMark(QLineEdit& box)
    : m_box(box), m_usualTip(box.toolTip()), m_usualDescription(box.accessibleDescription())
{
    box.installEventFilter(this);
}

void ProblemMark::Show(const QString& problem)
{
    if (problem == m_problem)
        return;
    m_problem = problem;
    const bool wrong = !problem.isEmpty();
    if (wrong && !m_sign) {
        m_sign = m_box.addAction(m_box.style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                 QLineEdit::TrailingPosition);
        m_sign->setParent(this);
        m_sign->setObjectName(QStringLiteral("mnuProblem"));
    }
    if (m_sign) {
        m_sign->setVisible(wrong);
        m_sign->setToolTip(problem);
        m_sign->setText(problem);
    }
    m_box.setToolTip(wrong ? problem : m_usualTip);
    m_box.setAccessibleDescription(wrong ? problem : m_usualDescription);
    ShowColor();
}

void ProblemMark::ShowColor()
{
    const QScopedValueRollback<bool> once(m_colouring, true);
    // Without colours of its own the box follows the application's.
    QPalette palette;
    if (!m_problem.isEmpty()) {
        const QPalette usual = QApplication::palette(&m_box);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            palette.setColor(group, QPalette::Text, Readable(Qt::red, usual.color(group, QPalette::Base)));
    }
    m_box.setPalette(palette);
}

bool ProblemMark::eventFilter(QObject* watched, QEvent* event)
{
    // Another theme: the colour that can be read on it is another one.
    if (!m_colouring && event->type() == QEvent::PaletteChange && !m_problem.isEmpty())
        QMetaObject::invokeMethod(
            this, [this] { ShowColor(); }, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}
