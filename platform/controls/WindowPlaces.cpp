#include "platform/controls/WindowPlaces.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QHeaderView>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTableView>

namespace {

/// The window, if its place is the operator's.
QWidget* KeptWindow(QObject* object)
{
    auto* const window = qobject_cast<QWidget*>(object);
    if (!window || !window->isWindow() || window->objectName().isEmpty())
        return nullptr;
    const auto* const dialog = qobject_cast<QDialog*>(window);
    return qobject_cast<QMainWindow*>(window) || (dialog && dialog->isSizeGripEnabled()) ? window : nullptr;
}

QString Key(const QWidget& window, const QString& part)
{
    return QStringLiteral("Windows/") + window.objectName() + QLatin1Char('/') + part;
}

QString FontKey(const QWidget& window, const QTableView& table)
{
    return Key(window, table.objectName() + QStringLiteral("Font"));
}

bool IsKept(const QTableView& table)
{
    return !table.objectName().isEmpty() && table.model() && table.horizontalHeader()->count() > 0;
}

/// Only the widths: which column stretches is the window's business.
void RestoreColumns(QTableView& table, const QStringList& widths)
{
    const QHeaderView& header = *table.horizontalHeader();
    if (widths.size() != header.count())
        return;
    for (int column = 0; column < header.count(); ++column) {
        // What the window made room for this time is never cut.
        if (header.sectionResizeMode(column) == QHeaderView::Interactive)
            table.setColumnWidth(column, qMax(table.columnWidth(column), widths[column].toInt()));
    }
}

QStringList ColumnWidths(const QTableView& table)
{
    QStringList widths;
    for (int column = 0; column < table.horizontalHeader()->count(); ++column)
        widths << QString::number(table.columnWidth(column));
    return widths;
}

/// Gives a widget its final size: shares of a splitter that still grows would be moved again.
void LayOutDownTo(QWidget& widget, const QWidget& window)
{
    if (&widget != &window && widget.parentWidget())
        LayOutDownTo(*widget.parentWidget(), window);
    if (widget.layout())
        widget.layout()->activate();
}

/// The screen may be another one than last time.
void KeepOnScreen(QWidget& window)
{
    const QRect available = window.screen()->availableGeometry();
    window.resize(window.size().boundedTo(available.size()));
    const QPoint farthest(available.right() + 1 - window.width(), available.bottom() + 1 - window.height());
    const QPoint place(qBound(available.left(), window.x(), qMax(available.left(), farthest.x())),
                       qBound(available.top(), window.y(), qMax(available.top(), farthest.y())));
    if (place != window.pos())
        window.move(place);
}

} // namespace

WindowPlaces::WindowPlaces(QSettings& settings) : m_settings(settings)
{
    qApp->installEventFilter(this);
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event)
{
    // Spontaneous: the window system shows and hides what stays open.
    const bool shows = event->type() == QEvent::Show && !event->spontaneous();
    const bool hides = event->type() == QEvent::Hide && !event->spontaneous();
    // A dialog that ends only hides; a main window may write its settings while it closes.
    if (shows || hides || event->type() == QEvent::Close) {
        QWidget* const window = KeptWindow(watched);
        if (window && shows)
            Restore(*window);
        else if (window)
            Store(*window);
    }
    return QObject::eventFilter(watched, event);
}

void WindowPlaces::Restore(QWidget& window) const
{
    if (window.restoreGeometry(m_settings.value(Key(window, QStringLiteral("Geometry"))).toByteArray()))
        KeepOnScreen(window);
    for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (splitter->objectName().isEmpty())
            continue;
        LayOutDownTo(*splitter, window);
        splitter->restoreState(m_settings.value(Key(window, splitter->objectName())).toByteArray());
    }
    for (QTableView* table : window.findChildren<QTableView*>()) {
        if (IsKept(*table) &&
            m_settings.value(FontKey(window, *table)).toString() == table->font().toString())
            RestoreColumns(*table, m_settings.value(Key(window, table->objectName())).toStringList());
    }
}

void WindowPlaces::Store(const QWidget& window) const
{
    m_settings.setValue(Key(window, QStringLiteral("Geometry")), window.saveGeometry());
    for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (!splitter->objectName().isEmpty())
            m_settings.setValue(Key(window, splitter->objectName()), splitter->saveState());
    }
    for (const QTableView* table : window.findChildren<QTableView*>()) {
        if (!IsKept(*table))
            continue;
        m_settings.setValue(Key(window, table->objectName()), ColumnWidths(*table));
        m_settings.setValue(FontKey(window, *table), table->font().toString());
    }
}
