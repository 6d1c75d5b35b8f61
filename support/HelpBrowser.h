#pragma once

#include <QTextBrowser>

class HelpFile;

/// Shows the pages of a help file, in the colours of the window; nothing from outside that file is ever read
/// or opened.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    /// `file` is not owned; null: nothing is shown any more.
    void SetFile(HelpFile* file);
    /// Steps by which the text is larger than the window's; negative: smaller.
    [[nodiscard]] int Zoom() const { return m_zoom; }
    void SetZoom(int steps);

    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    /// A link led out of the help file and was not followed.
    void LinkRefused(const QUrl& link);

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QVariant LoadPage(const QUrl& name) const;
    [[nodiscard]] QString LoadStyle(const QUrl& name) const;
    [[nodiscard]] QVariant LoadPicture(const QUrl& name) const;
    [[nodiscard]] bool IsDark() const;

    HelpFile* m_file = nullptr;
    int m_zoom = 0;
};
