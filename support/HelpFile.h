#pragma once

#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

/// Numbers of the errors that a help file raises.
namespace HelpErrors {
/// It is no help file, or it is damaged.
constexpr quint32 UnusableFile = 0x80040180;
/// There is no room for what the help has to write while it is open.
constexpr quint32 NoWorkingFolder = 0x80040181;
} // namespace HelpErrors

/// An open help file: its pages and pictures, its contents and its keywords.
///
/// What Qt keeps beside a help file, the list of files and the index of the search, lies in a temporary
/// folder as long as this lives: an installed file is in a place that operators cannot write to, and two
/// programs of one operator do not meet in it.
class HelpFile
{
public:
    /// Raises a ComponentError with a number of HelpErrors.
    explicit HelpFile(const QString& path);

    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] QHelpEngine& Engine() { return *m_engine; }
    /// Where a topic is: a page's name and, behind "#", a place in it.
    [[nodiscard]] QUrl UrlOf(const QString& topic) const;
    /// Whether the page, without regard to the place in it, is part of the file.
    [[nodiscard]] bool Holds(const QUrl& url) const;
    /// A page or a picture; empty when there is none.
    [[nodiscard]] QByteArray Read(const QUrl& url) const { return m_engine->fileData(url); }

    /// What all addresses of help files begin with.
    [[nodiscard]] static QString Scheme() { return QStringLiteral("qthelp"); }

private:
    QString m_path;
    QTemporaryDir m_folder;
    std::unique_ptr<QHelpEngine> m_engine;
    /// Address of the folder of the pages.
    QUrl m_pages;
};
