#include "support/HelpFindBar.h"

#include "support/ui_HelpFindBar.h"

#include <QKeyEvent>
#include <QTextBrowser>

HelpFindBar::HelpFindBar(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::HelpFindBar>())
{
    m_ui->setupUi(this);
    m_ui->txtFind->installEventFilter(this);
    connect(m_ui->txtFind, &QLineEdit::textEdited, this, &HelpFindBar::txtFind_Change);
    connect(m_ui->cmdNext, &QPushButton::clicked, this, &HelpFindBar::Next);
    connect(m_ui->cmdPrevious, &QPushButton::clicked, this, &HelpFindBar::Previous);
}

HelpFindBar::~HelpFindBar() = default;

void HelpFindBar::Enter()
{
    show();
    m_ui->txtFind->setFocus(Qt::ShortcutFocusReason);
    m_ui->txtFind->selectAll();
}

void HelpFindBar::txtFind_Change()
{
    // A longer text may hold the one that was found, so it begins where that does.
    QTextCursor place = m_browser->textCursor();
    place.setPosition(place.selectionStart());
    m_browser->setTextCursor(place);
    Next();
}

void HelpFindBar::Find(QTextDocument::FindFlags flags)
{
    const QString text = m_ui->txtFind->text();
    m_ui->lblOutcome->clear();
    if (text.isEmpty() || m_browser->find(text, flags))
        return;
    const QTextCursor before = m_browser->textCursor();
    m_browser->moveCursor(flags & QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
    if (m_browser->find(text, flags))
        return;
    m_browser->setTextCursor(before);
    m_ui->lblOutcome->setText(tr("Not in this page"));
}

bool HelpFindBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    if (key.modifiers().testFlag(Qt::ShiftModifier))
        Previous();
    else
        Next();
    return true;
}
