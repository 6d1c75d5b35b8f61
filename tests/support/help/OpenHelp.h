#pragma once

#include "support/HelpBrowser.h"
#include "support/HelpFile.h"
#include "support/HelpWindow.h"
#include "support/modHTMLHelp.h"
#include "tests/support/RecordingPresenter.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// The help window on the built help file, with settings of its own.
class OpenHelp
{
public:
    OpenHelp() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path()); }
    ~OpenHelp() { HelpWindow::End(); }
    OpenHelp(const OpenHelp&) = delete;
    OpenHelp& operator=(const OpenHelp&) = delete;

    RecordingPresenter Boxes;

    static HelpWindow& Show(const QString& topic = QStringLiteral("index.htm"))
    {
        modHTMLHelp::ShowHelpTopic(topic);
        HelpWindow* window = HelpWindow::Current();
        if (!window || !QTest::qWaitForWindowActive(window))
            qFatal("There is no help window.");
        return *window;
    }
    template <typename Widget>
    [[nodiscard]] static Widget& Find(const char* name)
    {
        auto* widget = HelpWindow::Current()->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("There is no %s.", name);
        return *widget;
    }
    [[nodiscard]] static HelpBrowser& Page() { return Find<HelpBrowser>("txtPage"); }
    /// Page and place that are shown, such as "Finding.htm" or "index.htm#Place".
    [[nodiscard]] static QString Shown() { return TopicOf(HelpWindow::Current()->Page()); }
    [[nodiscard]] static QString TopicOf(const QUrl& url)
    {
        return url.fileName() + (url.hasFragment() ? QLatin1Char('#') + url.fragment() : QString());
    }
    static void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(HelpWindow::Current()->windowHandle(), Qt::Key(key), modifiers);
    }
    static void Type(const QString& text)
    {
        for (const QChar character : text)
            QTest::keyClick(HelpWindow::Current()->windowHandle(), character.toLatin1());
    }

private:
    QTemporaryDir m_settings;
};
