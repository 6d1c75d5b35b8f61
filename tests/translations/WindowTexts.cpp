#include "tests/translations/WindowTexts.h"

#include "platform/controls/ElidedLabel.h"
#include "tests/translations/Catalogue.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

#include <algorithm>
#include <functional>

namespace {

QList<QWidget*> PartsOf(const QWidget& window)
{
    QList<QWidget*> parts = window.findChildren<QWidget*>();
    parts.prepend(const_cast<QWidget*>(&window));
    return parts;
}

/// Where a widget stands: the names from the window down, numbered where a parent has several without one.
QString PlaceOf(const QObject& object, const QObject& window)
{
    if (&object == &window || !object.parent())
        return {};
    const qsizetype number = object.parent()->children().indexOf(const_cast<QObject*>(&object));
    const QString name =
        object.objectName().isEmpty()
            ? QStringLiteral("%1#%2").arg(QString::fromLatin1(object.metaObject()->className())).arg(number)
            : object.objectName();
    return PlaceOf(*object.parent(), window) + u'/' + name;
}

void AddProperties(const QObject& object, const QString& place, QMap<QString, QString>& texts)
{
    // An editable text is the operator's; lists and combo boxes hold data.
    const bool isInput = qobject_cast<const QLineEdit*>(&object);
    for (const char* name : {"windowTitle", "title", "text", "toolTip", "statusTip", "accessibleName",
                             "accessibleDescription", "placeholderText"}) {
        const QString text = object.property(name).toString();
        if (!text.isEmpty() && !(isInput && qstrcmp(name, "text") == 0))
            texts.insert(place + u'.' + QString::fromLatin1(name), text);
    }
}

void AddHeadings(const QWidget& widget, const QString& place, QMap<QString, QString>& texts)
{
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
        for (int page = 0; page < tabs->count(); ++page)
            texts.insert(QStringLiteral("%1.tab%2").arg(place).arg(page), tabs->tabText(page));
    }
    if (const auto* tree = qobject_cast<const QTreeWidget*>(&widget)) {
        for (int column = 0; column < tree->columnCount(); ++column)
            texts.insert(QStringLiteral("%1.heading%2").arg(place).arg(column),
                         tree->headerItem()->text(column));
    }
    if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) {
        for (int column = 0; column < table->columnCount(); ++column) {
            if (const QTableWidgetItem* item = table->horizontalHeaderItem(column))
                texts.insert(QStringLiteral("%1.heading%2").arg(place).arg(column), item->text());
        }
    }
}

QString Words(const QString& caption)
{
    return QString(caption).remove(u'&');
}

/// Lines break between words only.
bool HasTooLongWord(const QLabel& label)
{
    const QStringList words = label.text().split(u' ');
    return std::any_of(words.begin(), words.end(), [&](const QString& word) {
        return label.fontMetrics().horizontalAdvance(word) > label.contentsRect().width();
    });
}

/// Whether a caption gets less room than it needs. Room for a blank more or less is not the question.
bool IsClipped(const QWidget& widget)
{
    // Shortens its text itself, and tells it whole in its tip.
    if (qobject_cast<const ElidedLabel*>(&widget))
        return false;
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return label->height() < label->heightForWidth(label->width()) || HasTooLongWord(*label);
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->width() < group->fontMetrics().horizontalAdvance(Words(group->title()));
    if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        int needed = 0;
        for (int tab = 0; tab < bar->count(); ++tab)
            needed += bar->tabRect(tab).width();
        return bar->width() < needed;
    }
    if (!label && !qobject_cast<const QAbstractButton*>(&widget))
        return false;
    return widget.width() < widget.sizeHint().width() || widget.height() < widget.sizeHint().height();
}

QString CaptionOf(const QWidget& widget)
{
    for (const char* name : {"text", "title"}) {
        const QString caption = widget.property(name).toString();
        if (!caption.isEmpty())
            return caption;
    }
    return {};
}

/// Runs `look` with each page of each tab bar in front.
void OnEachPage(QWidget& window, const std::function<void()>& look)
{
    look();
    for (QTabWidget* tabs : window.findChildren<QTabWidget*>()) {
        const int before = tabs->currentIndex();
        for (int page = 0; page < tabs->count(); ++page) {
            if (!tabs->isTabEnabled(page) || page == before)
                continue;
            tabs->setCurrentIndex(page);
            look();
        }
        tabs->setCurrentIndex(before);
    }
}

/// False for what stands on two pages of one tab bar.
bool MayStandTogether(const QWidget& one, const QWidget& other)
{
    for (const QWidget* page = &one; page; page = page->parentWidget()) {
        const auto* stack = qobject_cast<const QStackedWidget*>(page->parentWidget());
        if (!stack || !stack->isAncestorOf(&other))
            continue;
        return page->isAncestorOf(&other);
    }
    return true;
}

} // namespace

QMap<QString, QString> TextsOf(const QWidget& window)
{
    QMap<QString, QString> texts;
    for (const QWidget* part : PartsOf(window)) {
        // What Qt puts together by itself says what the widget around it says.
        if (part->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        const QString place = PlaceOf(*part, window);
        AddProperties(*part, place, texts);
        AddHeadings(*part, place, texts);
        for (const QAction* action : part->actions())
            AddProperties(*action, place + u'/' + action->objectName(), texts);
    }
    return texts;
}

QStringList ClippedTexts(QWidget& window)
{
    QStringList clipped;
    OnEachPage(window, [&] {
        // Lays everything out, whether the window is on a screen or not.
        (void)window.grab();
        for (const QWidget* part : PartsOf(window)) {
            if (!part->isVisibleTo(&window) ||
                (!qobject_cast<const QTabBar*>(part) && CaptionOf(*part).isEmpty()))
                continue;
            if (IsClipped(*part))
                clipped << QStringLiteral("%1 \"%2\" has %3x%4")
                               .arg(PlaceOf(*part, window), CaptionOf(*part))
                               .arg(part->width())
                               .arg(part->height());
        }
    });
    return clipped;
}

QStringList SharedAccessKeys(const QWidget& window)
{
    QList<const QWidget*> captioned;
    for (const QWidget* part : PartsOf(window)) {
        const auto* label = qobject_cast<const QLabel*>(part);
        const bool hasKey = label ? label->buddy() != nullptr : !qobject_cast<const QMenu*>(part);
        if (hasKey && !AccessKey(CaptionOf(*part)).isNull())
            captioned << part;
    }
    QStringList shared;
    for (qsizetype one = 0; one < captioned.size(); ++one) {
        for (qsizetype other = one + 1; other < captioned.size(); ++other) {
            const QString first = CaptionOf(*captioned[one]);
            const QString second = CaptionOf(*captioned[other]);
            if (AccessKey(first) == AccessKey(second) && MayStandTogether(*captioned[one], *captioned[other]))
                shared << first + QStringLiteral(" / ") + second;
        }
    }
    return shared;
}
