#include "platform/controls/Theme.h"

#include "platform/controls/ContrastStyle.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

#include <array>

namespace {

constexpr std::array<const char*, 4> Names{"system", "light", "dark", "contrast"};

/// The colours that a theme chooses; all others follow from them.
struct Colors
{
    QRgb window;
    QRgb text;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb highlight;
    QRgb highlighted;
    QRgb link;
    QRgb visited;
    /// Of what cannot be used, and of hints in empty boxes.
    QRgb faint;
    QRgb bright;
};

constexpr Colors LightColors{0xfff0f0f0, 0xff1a1a1a, 0xffffffff, 0xfff4f6f8, 0xffe8e8e8, 0xff1f5fa8,
                             0xffffffff, 0xff0b57a4, 0xff6b3fa0, 0xff666666, 0xffb00000};
constexpr Colors DarkColors{0xff2f3133, 0xffececec, 0xff1f2123, 0xff282b2e, 0xff34383c, 0xff2b6cb0,
                            0xffffffff, 0xff84bdff, 0xffcba6f7, 0xffb2b6ba, 0xffff8a80};
constexpr Colors ContrastColors{0xff000000, 0xffffffff, 0xff000000, 0xff1a1a1a, 0xff000000, 0xffffff00,
                                0xff000000, 0xff66d9ff, 0xffffa6ff, 0xffc0c0c0, 0xffffff00};

QPalette PaletteOf(const Colors& colors)
{
    QPalette palette(QColor(colors.button), QColor(colors.window));
    const std::pair<QPalette::ColorRole, QRgb> roles[] = {
        {QPalette::WindowText, colors.text},
        {QPalette::Base, colors.base},
        {QPalette::AlternateBase, colors.alternate},
        {QPalette::Text, colors.text},
        {QPalette::ButtonText, colors.text},
        {QPalette::BrightText, colors.bright},
        {QPalette::Highlight, colors.highlight},
        {QPalette::HighlightedText, colors.highlighted},
        {QPalette::Link, colors.link},
        {QPalette::LinkVisited, colors.visited},
        {QPalette::ToolTipBase, colors.alternate},
        {QPalette::ToolTipText, colors.text},
        {QPalette::PlaceholderText, colors.faint},
    };
    for (const auto& [role, color] : roles)
        palette.setColor(role, QColor(color));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(colors.faint));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(colors.window));
    // A selection stays visible where nothing can be done with it.
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colors.faint));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(colors.window));
    return palette;
}

/// What the program came up with, noted before the first theme changes it.
struct Origin
{
    QString style = QApplication::style()->name();
    QPalette palette = QApplication::palette();
};

const Origin& Started()
{
    static const Origin origin;
    return origin;
}

QStyle* NewStyle(Theme theme)
{
    if (theme == Theme::Contrast)
        return new ContrastStyle;
    return QStyleFactory::create(theme == Theme::System ? Started().style : QStringLiteral("Fusion"));
}

} // namespace

QPalette ThemePalette(Theme theme)
{
    switch (theme) {
    case Theme::Light:
        return PaletteOf(LightColors);
    case Theme::Dark:
        return PaletteOf(DarkColors);
    case Theme::Contrast:
        return PaletteOf(ContrastColors);
    case Theme::System:
        break;
    }
    return Started().palette;
}

void ApplyTheme(Theme theme)
{
    const bool isStart = Started().palette == QApplication::palette();
    if (theme == Theme::System && isStart)
        return;
    QApplication::setStyle(NewStyle(theme));
    // An empty palette is the desktop's again, and follows it.
    QApplication::setPalette(theme == Theme::System ? QPalette() : ThemePalette(theme));
}

QString ThemeName(Theme theme)
{
    return QString::fromLatin1(Names.at(static_cast<std::size_t>(theme)));
}

std::optional<Theme> ThemeOfName(const QString& name)
{
    const qsizetype position = ThemeNames().indexOf(name);
    return position < 0 ? std::nullopt : std::optional(static_cast<Theme>(position));
}

QStringList ThemeNames()
{
    QStringList names;
    for (const char* name : Names)
        names << QString::fromLatin1(name);
    return names;
}
