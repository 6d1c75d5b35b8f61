#include "support/HelpSearch.h"

#include "support/ui_HelpSearch.h"

#include <QHelpEngine>
#include <QHelpSearchEngine>

HelpSearch::HelpSearch(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::HelpSearch>())
{
    m_ui->setupUi(this);
    connect(m_ui->cmdSearch, &QPushButton::clicked, this, &HelpSearch::cmdSearch_Click);
    connect(m_ui->txtSearch, &QLineEdit::returnPressed, this, &HelpSearch::cmdSearch_Click);
    connect(m_ui->txtSearch, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_ui->cmdSearch->setEnabled(!text.trimmed().isEmpty()); });
    connect(m_ui->lstFound, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { lstFound_Activate(*item); });
    connect(m_ui->lstFound, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { lstFound_Activate(*item); });
}

HelpSearch::~HelpSearch() = default;

void HelpSearch::SetEngine(QHelpEngine& engine)
{
    m_search = new QHelpSearchEngine(&engine, this);
    connect(m_search, &QHelpSearchEngine::indexingFinished, this, [this] {
        m_isIndexed = true;
        if (!m_words.isEmpty())
            m_search->search(m_words);
    });
    connect(m_search, &QHelpSearchEngine::searchingFinished, this, &HelpSearch::ShowFound);
    m_search->reindexDocumentation();
}

void HelpSearch::Enter()
{
    m_ui->txtSearch->setFocus(Qt::ShortcutFocusReason);
    m_ui->txtSearch->selectAll();
}

void HelpSearch::Search(const QString& words)
{
    m_ui->txtSearch->setText(words);
    cmdSearch_Click();
}

void HelpSearch::cmdSearch_Click()
{
    m_words = m_ui->txtSearch->text().simplified();
    if (m_words.isEmpty() || !m_search)
        return;
    m_ui->lstFound->clear();
    m_ui->lblFound->setText(tr("Searching ..."));
    if (m_isIndexed)
        m_search->search(m_words);
}

void HelpSearch::ShowFound()
{
    const QList<QHelpSearchResult> pages = m_search->searchResults(0, m_search->searchResultCount());
    m_ui->lstFound->clear();
    for (const QHelpSearchResult& page : pages) {
        auto* item = new QListWidgetItem(page.title(), m_ui->lstFound);
        item->setData(Qt::UserRole, page.url());
    }
    if (pages.isEmpty())
        m_ui->lblFound->setText(tr("No page holds \"%1\".").arg(m_words));
    else
        m_ui->lblFound->setText(tr("Pages found: %1").arg(pages.size()));
    if (pages.isEmpty())
        return;
    m_ui->lstFound->setCurrentRow(0);
    // Where the operator waits in the box, the next key goes to the first page.
    if (m_ui->txtSearch->hasFocus() || m_ui->cmdSearch->hasFocus())
        m_ui->lstFound->setFocus(Qt::OtherFocusReason);
}

void HelpSearch::lstFound_Activate(const QListWidgetItem& item)
{
    Q_EMIT PageChosen(item.data(Qt::UserRole).toUrl());
}
