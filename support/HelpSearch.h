#pragma once

#include <QUrl>
#include <QWidget>

#include <memory>

class QHelpEngine;
class QHelpSearchEngine;
class QListWidgetItem;

namespace Ui {
class HelpSearch;
}

/// Searches the whole text of a help file and lists the pages that hold all words.
class HelpSearch : public QWidget
{
    Q_OBJECT

public:
    explicit HelpSearch(QWidget* parent = nullptr);
    ~HelpSearch() override;

    /// Reads the pages in the background; a search that is asked for meanwhile runs when that is done. Once.
    void SetEngine(QHelpEngine& engine);
    /// Puts the cursor into the box for the words.
    void Enter();
    void Search(const QString& words);

Q_SIGNALS:
    /// The operator has picked a page.
    void PageChosen(const QUrl& page);

private:
    void cmdSearch_Click();
    void lstFound_Activate(const QListWidgetItem& item);
    void ShowFound();

    std::unique_ptr<Ui::HelpSearch> m_ui;
    QHelpSearchEngine* m_search = nullptr;
    bool m_isIndexed = false;
    /// Of the last search.
    QString m_words;
};
