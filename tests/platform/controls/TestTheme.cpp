#include "platform/controls/Contrast.h"
#include "platform/controls/Theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

/// Text and what it stands on.
constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> TextPairs[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::Link, QPalette::Window},
    {QPalette::Link, QPalette::Base},
    {QPalette::LinkVisited, QPalette::Base},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::PlaceholderText, QPalette::Base},
};

/// The greatest contrast that a pixel of a picture has against a colour.
double MostContrast(const QImage& picture, const QColor& background)
{
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            most = qMax(most, ContrastRatio(picture.pixelColor(x, y), background));
    }
    return most;
}

} // namespace

/// The colours of the windows.
class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ApplyTheme(Theme::System); }

    void ContrastRatio_KnownColors_IsTheStandards()
    {
        QCOMPARE(qRound(ContrastRatio(Qt::black, Qt::white) * 100), 2100);
        QCOMPARE(qRound(ContrastRatio(Qt::red, Qt::red) * 100), 100);
        QCOMPARE(qRound(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) * 100), 448);
        QCOMPARE(ContrastRatio(Qt::white, Qt::blue), ContrastRatio(Qt::blue, Qt::white));
    }

    void Readable_AnyBackground_CanBeRead()
    {
        for (int grey = 0; grey < 256; ++grey) {
            const QColor background(grey, grey, grey);
            QVERIFY(ContrastRatio(Readable(Qt::red, background), background) >= TextContrast);
        }
        QCOMPARE(Readable(Qt::black, Qt::white), QColor(Qt::black));
    }

    void Palette_Texts_CanBeRead_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::addColumn<double>("least");
        QTest::newRow("light") << QStringLiteral("light") << TextContrast;
        QTest::newRow("dark") << QStringLiteral("dark") << TextContrast;
        // Of the enhanced level.
        QTest::newRow("contrast") << QStringLiteral("contrast") << 7.0;
    }
    void Palette_Texts_CanBeRead()
    {
        QFETCH(const QString, theme);
        QFETCH(const double, least);
        const QPalette palette = ThemePalette(*ThemeOfName(theme));
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto& [text, background] : TextPairs)
                QVERIFY2(ContrastRatio(palette.color(group, text), palette.color(group, background)) >= least,
                         qPrintable(QStringLiteral("role %1").arg(text)));
        }
        for (const auto& [text, background] : TextPairs)
            QVERIFY2(ContrastRatio(palette.color(QPalette::Disabled, text),
                                   palette.color(QPalette::Disabled, background)) >= TextContrast,
                     qPrintable(QStringLiteral("disabled role %1").arg(text)));
    }

    void ApplyTheme_Dark_ColoursWindowsThatAreOpen()
    {
        QLineEdit box;
        box.show();
        ApplyTheme(Theme::Dark);
        QCoreApplication::processEvents();
        QCOMPARE(box.palette().color(QPalette::Base), ThemePalette(Theme::Dark).color(QPalette::Base));
        QVERIFY(box.grab().toImage().pixelColor(box.width() / 2, box.height() / 2).lightness() < 80);
    }

    void ApplyTheme_SystemAgain_IsAsAtTheStart()
    {
        const QPalette before = QApplication::palette();
        const QString style = QApplication::style()->name();
        ApplyTheme(Theme::Contrast);
        ApplyTheme(Theme::System);
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(QApplication::style()->name(), style);
    }

    void Names_EachTheme_ComesBack()
    {
        QCOMPARE(ThemeNames().size(), 4);
        for (const QString& name : ThemeNames())
            QCOMPARE(ThemeName(*ThemeOfName(name)), name);
        QVERIFY(!ThemeOfName(QStringLiteral("pink")));
    }

    // Black on black shows nothing: all that can be used has an outline.
    void Contrast_Control_HasAnOutline_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"QPushButton", "QLineEdit", "QCheckBox", "QRadioButton", "QComboBox"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void Contrast_Control_HasAnOutline()
    {
        QFETCH(const QString, kind);
        ApplyTheme(Theme::Contrast);
        const std::unique_ptr<QWidget> control(MakeControl(kind));
        control->resize(control->sizeHint());
        control->show();
        QVERIFY(MostContrast(control->grab().toImage(), Qt::black) >= 7);
    }

    void Contrast_Focus_IsThickAndYellow()
    {
        ApplyTheme(Theme::Contrast);
        QWidget window;
        QPushButton button(&window);
        window.show();
        button.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QImage picture = button.grab().toImage();
        const QColor yellow = ThemePalette(Theme::Contrast).color(QPalette::Highlight);
        const int middle = picture.height() / 2;
        QCOMPARE(picture.pixelColor(0, middle), yellow);
        QCOMPARE(picture.pixelColor(1, middle), yellow);
    }

private:
    static QWidget* MakeControl(const QString& kind);
};

QWidget* TestTheme::MakeControl(const QString& kind)
{
    if (kind == QLatin1String("QPushButton"))
        return new QPushButton;
    if (kind == QLatin1String("QLineEdit"))
        return new QLineEdit;
    if (kind == QLatin1String("QCheckBox"))
        return new QCheckBox;
    if (kind == QLatin1String("QRadioButton"))
        return new QRadioButton;
    return new QComboBox;
}

QTEST_MAIN(TestTheme)
#include "TestTheme.moc"
