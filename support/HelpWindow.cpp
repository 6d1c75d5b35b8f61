#include "support/HelpWindow.h"

#include "platform/HelpLinks.h"
#include "support/HelpFile.h"
#include "support/ui_HelpWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QSettings>
#include <QShortcut>
#include <QWindow>

namespace {

/// Of a new operator's window; later the operator's own.
constexpr int WaysInWidth = 270;
constexpr int PageWidth = 730;

QString GeometryKey()
{
    return QStringLiteral("Window/Geometry");
}
QString SplitterKey()
{
    return QStringLiteral("Window/Splitter");
}
QString ZoomKey()
{
    return QStringLiteral("Page/Zoom");
}

QSettings KeptSettings()
{
    return {QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Zelka"), QStringLiteral("Help")};
}

/// The entry of the contents that leads to this very place. (The widget itself looks for the page alone.)
QModelIndex EntryOf(const QHelpContentModel& contents, const QUrl& place, const QModelIndex& parent = {})
{
    for (int row = 0; row < contents.rowCount(parent); ++row) {
        const QModelIndex entry = contents.index(row, 0, parent);
        if (contents.contentItemAt(entry)->url() == place)
            return entry;
        const QModelIndex below = EntryOf(contents, place, entry);
        if (below.isValid())
            return below;
    }
    return {};
}

std::unique_ptr<HelpWindow>& TheWindow()
{
    static std::unique_ptr<HelpWindow> window;
    return window;
}

} // namespace

HelpWindow& HelpWindow::Open(const QString& file)
{
    std::unique_ptr<HelpWindow>& window = TheWindow();
    if (!window || window->m_file->Path() != file) {
        auto opened = std::make_unique<HelpFile>(file);
        window.reset(new HelpWindow(std::move(opened)));
        // Windows cannot outlive the application.
        qAddPostRoutine(&HelpWindow::End);
    }
    return *window;
}

HelpWindow* HelpWindow::Current()
{
    return TheWindow().get();
}

void HelpWindow::End()
{
    TheWindow().reset();
}

HelpWindow::HelpWindow(std::unique_ptr<HelpFile> file)
    : m_file(std::move(file)), m_ui(std::make_unique<Ui::HelpWindow>())
{
    m_ui->setupUi(this);
    // A program ends with its own windows.
    setAttribute(Qt::WA_QuitOnClose, false);
    m_ui->splHelp->setStretchFactor(0, 0);
    m_ui->splHelp->setStretchFactor(1, 1);
    m_ui->splHelp->setSizes({WaysInWidth, PageWidth});
    m_ui->barFind->hide();
    m_ui->barFind->SetBrowser(*m_ui->txtPage);
    m_ui->txtPage->SetFile(m_file.get());
    AddWaysIn();
    Connect();
    AddKeys();
    RestorePlace();
}

HelpWindow::~HelpWindow()
{
    if (isVisible())
        SavePlace();
    // All of these read from the file.
    m_ui->txtPage->SetFile(nullptr);
    delete takeCentralWidget();
}

void HelpWindow::AddWaysIn()
{
    m_contents = m_file->Engine().contentWidget();
    m_contents->setObjectName(QStringLiteral("tvwContents"));
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHeaderHidden(true);
    m_contents->setFrameShape(QFrame::NoFrame);
    m_ui->layContents->addWidget(m_contents);
    m_index = m_file->Engine().indexWidget();
    m_index->setObjectName(QStringLiteral("lstIndex"));
    m_index->setAccessibleName(tr("Keywords"));
    m_ui->layIndex->addWidget(m_index);
    m_ui->pagSearch->SetEngine(m_file->Engine());
}

void HelpWindow::Connect()
{
    const HelpBrowser& page = *m_ui->txtPage;
    connect(m_ui->mnuBack, &QAction::triggered, &page, &QTextBrowser::backward);
    connect(m_ui->mnuForward, &QAction::triggered, &page, &QTextBrowser::forward);
    connect(&page, &QTextBrowser::backwardAvailable, m_ui->mnuBack, &QAction::setEnabled);
    connect(&page, &QTextBrowser::forwardAvailable, m_ui->mnuForward, &QAction::setEnabled);
    connect(m_ui->mnuHome, &QAction::triggered, this,
            [this] { ShowPage(m_file->UrlOf(HelpLinks::Contents)); });
    connect(m_ui->mnuFind, &QAction::triggered, m_ui->barFind, &HelpFindBar::Enter);
    const auto zoom = [this](int steps) { m_ui->txtPage->SetZoom(steps); };
    connect(m_ui->mnuLarger, &QAction::triggered, this, [=, this] { zoom(m_ui->txtPage->Zoom() + 1); });
    connect(m_ui->mnuSmaller, &QAction::triggered, this, [=, this] { zoom(m_ui->txtPage->Zoom() - 1); });
    connect(m_ui->mnuNormal, &QAction::triggered, this, [=] { zoom(0); });

    connect(&page, &QTextBrowser::sourceChanged, this, &HelpWindow::txtPage_Change);
    connect(&page, &HelpBrowser::LinkRefused, this, [this](const QUrl& link) {
        statusBar()->showMessage(
            tr("%1 is outside of this help and is not opened.").arg(link.toDisplayString()));
    });
    connect(m_contents, &QHelpContentWidget::linkActivated, this, &HelpWindow::ShowPage);
    connect(m_contents, &QAbstractItemView::clicked, this, [this](const QModelIndex& entry) {
        ShowPage(m_file->Engine().contentModel()->contentItemAt(entry)->url());
    });
    connect(m_ui->tabHelp, &QTabWidget::currentChanged, this, &HelpWindow::tabHelp_Change);
    connect(m_index, &QAbstractItemView::clicked, m_index, &QHelpIndexWidget::activateCurrentItem);
    connect(m_file->Engine().contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
        m_contents->expandAll();
        txtPage_Change(Page());
    });
    connect(m_index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink& document) { ShowPage(document.url); });
    connect(m_ui->txtIndex, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_index->filterIndices(text); });
    connect(m_ui->txtIndex, &QLineEdit::returnPressed, this, &HelpWindow::txtIndex_Enter);
    connect(m_ui->pagSearch, &HelpSearch::PageChosen, this, &HelpWindow::ShowPage);
}

void HelpWindow::AddKeys()
{
    m_ui->mnuBack->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)});
    m_ui->mnuForward->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Right), QKeySequence(Qt::Key_Forward)});
    m_ui->mnuHome->setShortcut(Qt::ALT | Qt::Key_Home);
    m_ui->mnuFind->setShortcut(QKeySequence::Find);
    m_ui->mnuLarger->setShortcuts(
        {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    m_ui->mnuSmaller->setShortcut(QKeySequence::ZoomOut);
    m_ui->mnuNormal->setShortcut(Qt::CTRL | Qt::Key_0);
    const auto onKey = [this](const QKeySequence& key, auto&& procedure) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, procedure);
    };
    onKey(Qt::Key_F3, [this] { m_ui->barFind->Next(); });
    onKey(Qt::SHIFT | Qt::Key_F3, [this] { m_ui->barFind->Previous(); });
    onKey(Qt::Key_Escape, [this] { EscapePressed(); });
    onKey(QKeySequence::Close, [this] { close(); });
    onKey(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] {
        m_ui->tabHelp->setCurrentWidget(m_ui->pagSearch);
        m_ui->pagSearch->Enter();
    });
    // From the ways in to the page and back, which may be many links away by Tab.
    onKey(Qt::Key_F6, [this] {
        const bool inPage = m_ui->txtPage->hasFocus();
        QWidget* const waysIn = m_ui->tabHelp->tabBar();
        (inPage ? waysIn : m_ui->txtPage)->setFocus(Qt::ShortcutFocusReason);
    });
}

void HelpWindow::ShowTopic(const QString& topic)
{
    ShowPage(m_file->UrlOf(topic));
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    FollowModalWindow();
    raise();
    activateWindow();
    m_ui->txtPage->setFocus(Qt::OtherFocusReason);
}

QUrl HelpWindow::Page() const
{
    return m_ui->txtPage->source();
}

void HelpWindow::ShowPage(const QUrl& page)
{
    m_ui->txtPage->setSource(page);
}

void HelpWindow::txtPage_Change(const QUrl& page)
{
    statusBar()->clearMessage();
    const QString title = m_ui->txtPage->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
    QModelIndex entry = EntryOf(*m_file->Engine().contentModel(), page);
    if (!entry.isValid())
        entry = m_contents->indexOf(page);
    if (entry.isValid())
        m_contents->setCurrentIndex(entry);
}

void HelpWindow::tabHelp_Change()
{
    if (m_ui->tabHelp->tabBar()->hasFocus())
        return;
    const QWidget* const way = m_ui->tabHelp->currentWidget();
    if (way == m_ui->pagSearch)
        m_ui->pagSearch->Enter();
    else if (way == m_ui->pagIndex)
        m_ui->txtIndex->setFocus(Qt::ShortcutFocusReason);
    else
        m_contents->setFocus(Qt::ShortcutFocusReason);
}

void HelpWindow::txtIndex_Enter()
{
    m_index->activateCurrentItem();
}

void HelpWindow::EscapePressed()
{
    if (m_ui->barFind->isHidden()) {
        close();
        return;
    }
    m_ui->barFind->hide();
    m_ui->txtPage->setFocus(Qt::OtherFocusReason);
}

// Modal windows -------------------------------------------------------------------------------------------

bool HelpWindow::event(QEvent* event)
{
    // Behind the event, which comes while the modal window is still being shown.
    if (event->type() == QEvent::WindowBlocked)
        QMetaObject::invokeMethod(this, &HelpWindow::FollowModalWindow, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

void HelpWindow::FollowModalWindow()
{
    QWindow* const modal = QGuiApplication::modalWindow();
    if (!windowHandle() || windowHandle()->transientParent() == modal)
        return;
    windowHandle()->setTransientParent(modal);
    if (!modal)
        return;
    // When it goes there may be another below it, which would block this window without a word.
    const auto once = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
    connect(modal, &QWindow::visibleChanged, this, &HelpWindow::FollowModalWindow, once);
    connect(modal, &QObject::destroyed, this, &HelpWindow::FollowModalWindow, once);
}

// Place ---------------------------------------------------------------------------------------------------

void HelpWindow::RestorePlace()
{
    const QSettings settings = KeptSettings();
    restoreGeometry(settings.value(GeometryKey()).toByteArray());
    m_ui->splHelp->restoreState(settings.value(SplitterKey()).toByteArray());
    m_ui->txtPage->SetZoom(settings.value(ZoomKey()).toInt());
}

void HelpWindow::SavePlace()
{
    QSettings settings = KeptSettings();
    settings.setValue(GeometryKey(), saveGeometry());
    settings.setValue(SplitterKey(), m_ui->splHelp->saveState());
    settings.setValue(ZoomKey(), m_ui->txtPage->Zoom());
}

void HelpWindow::closeEvent(QCloseEvent* event)
{
    SavePlace();
    QMainWindow::closeEvent(event);
}
