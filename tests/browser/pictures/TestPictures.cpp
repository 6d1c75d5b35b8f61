#include <QColor>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>
#include <QXmlStreamReader>

#include <cmath>

namespace {

constexpr int SmallSize = 16;
constexpr int LargeSize = 48;

QDir Pictures()
{
    return QDir(QStringLiteral(":/zelka/pictures"));
}

QStringList PictureNames()
{
    return Pictures().entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
}

QByteArray FileContents(const QString& name)
{
    QFile file(Pictures().filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage Drawn(const QString& name, int size, const QColor& background = Qt::transparent)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(background);
    QSvgRenderer renderer(Pictures().filePath(name));
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/// How far two pictures are apart, 0 to 255: the mean over all pixels of the largest channel difference.
double Difference(const QImage& a, const QImage& b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            sum += std::max({std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                             std::abs(p.blue() - q.blue()), std::abs(p.alpha() - q.alpha())});
        }
    }
    return sum / (a.width() * a.height());
}

double Luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Contrast of two colours as WCAG 2 defines it, 1 to 21.
double Contrast(const QColor& a, const QColor& b)
{
    const double la = Luminance(a);
    const double lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

int PixelsStandingOut(const QImage& image, const QColor& background)
{
    // 3:1 is what WCAG asks of graphical objects.
    constexpr double enough = 3.0;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += Contrast(image.pixelColor(x, y), background) >= enough ? 1 : 0;
    }
    return count;
}

QString Title(const QString& name)
{
    QXmlStreamReader reader(FileContents(name));
    while (reader.readNextStartElement()) {
        if (reader.name() == QStringLiteral("title"))
            return reader.readElementText();
        if (reader.name() != QStringLiteral("svg"))
            reader.skipCurrentElement();
    }
    return QString();
}

} // namespace

/// The connection type pictures and the icons of the control: all there, readable, told apart.
class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Folder_ListsPictures_HoldsTypesAndIcons();
    void Picture_Parsed_IsWellFormedOnTheGrid_data() { EachPicture(); }
    void Picture_Parsed_IsWellFormedOnTheGrid();
    void Picture_Drawn_StandsOutOnLightAndDark_data() { EachPicture(); }
    void Picture_Drawn_StandsOutOnLightAndDark();
    void EntryIcon_OnTheSelection_StandsOut_data();
    void EntryIcon_OnTheSelection_StandsOut();
    void Pictures_ComparedInPairs_LookDifferent_data();
    void Pictures_ComparedInPairs_LookDifferent();
    void TypePicture_Title_NamesItsType_data();
    void TypePicture_Title_NamesItsType();

private:
    static void EachPicture();
};

void TestPictures::EachPicture()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : PictureNames())
        QTest::newRow(qUtf8Printable(name)) << name;
}

void TestPictures::Folder_ListsPictures_HoldsTypesAndIcons()
{
    QStringList expected;
    for (int type = 0; type <= 16; ++type)
        expected << QStringLiteral("con%1.svg").arg(type, 2, 10, QLatin1Char('0'));
    expected << "connection.svg"
             << "find.svg"
             << "node.svg"
             << "root.svg"
             << "waypoint.svg"
             << "zelka.svg";

    QCOMPARE(PictureNames(), expected);
}

void TestPictures::Picture_Parsed_IsWellFormedOnTheGrid()
{
    QFETCH(QString, name);

    QXmlStreamReader reader(FileContents(name));
    while (!reader.atEnd())
        reader.readNext();
    QVERIFY2(!reader.hasError(), qUtf8Printable(reader.errorString()));

    const QSvgRenderer renderer(Pictures().filePath(name));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBox(), QRect(0, 0, LargeSize, LargeSize));
    QCOMPARE(renderer.defaultSize(), QSize(LargeSize, LargeSize));
    QVERIFY(!Title(name).isEmpty());
}

void TestPictures::Picture_Drawn_StandsOutOnLightAndDark()
{
    QFETCH(QString, name);

    const QColor light("#ffffff");
    const QColor dark("#2a2a2a");
    for (const int size : {SmallSize, LargeSize}) {
        const int fewest = size * size / 10;
        QVERIFY(PixelsStandingOut(Drawn(name, size, light), light) >= fewest);
        QVERIFY(PixelsStandingOut(Drawn(name, size, dark), dark) >= fewest);
    }
}

void TestPictures::EntryIcon_OnTheSelection_StandsOut_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"root.svg", "connection.svg", "waypoint.svg", "node.svg"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPictures::EntryIcon_OnTheSelection_StandsOut()
{
    QFETCH(QString, name);

    // The bar behind a selected entry is blue nearly everywhere, as some of the icons are.
    const QColor selection("#308cc6");
    for (const int size : {SmallSize, LargeSize})
        QVERIFY(PixelsStandingOut(Drawn(name, size, selection), selection) >= size * size / 20);
}

void TestPictures::Pictures_ComparedInPairs_LookDifferent_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("small") << SmallSize;
    QTest::newRow("large") << LargeSize;
}

void TestPictures::Pictures_ComparedInPairs_LookDifferent()
{
    QFETCH(int, size);

    constexpr double clearlyDifferent = 8.0;
    const QStringList names = PictureNames();
    QList<QImage> drawn;
    for (const QString& name : names)
        drawn << Drawn(name, size);

    for (qsizetype i = 0; i < names.size(); ++i) {
        for (qsizetype k = i + 1; k < names.size(); ++k) {
            const double difference = Difference(drawn.at(i), drawn.at(k));
            QVERIFY2(difference >= clearlyDifferent,
                     qUtf8Printable(
                         QStringLiteral("%1 and %2: %3").arg(names.at(i), names.at(k)).arg(difference)));
        }
    }
}

void TestPictures::TypePicture_Title_NamesItsType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    const QStringList titles{"T4 Bus",
                             "T4 Bus over TCP/IP",
                             "KD7 Mediation Bus",
                             "T4 Bus over Modem",
                             "T4 Bus over X.25",
                             "KD7 Mediation Bus over TCP/IP",
                             "VRL Radio Link",
                             "Simple Serial",
                             "KD7 Mediation Bus over Modem",
                             "DUNE Gateway",
                             "VRL Radio Link over TCP/IP",
                             "T4 Bus over ISDN",
                             "KD7 Mediation Bus over X.25",
                             "Local Area Network",
                             "Connection type without a picture of its own",
                             "SNMP Proxy",
                             "SNMP Direct"};
    for (qsizetype type = 0; type < titles.size(); ++type) {
        const QString name = QStringLiteral("con%1.svg").arg(type, 2, 10, QLatin1Char('0'));
        QTest::newRow(qUtf8Printable(name)) << name << titles.at(type);
    }
}

void TestPictures::TypePicture_Title_NamesItsType()
{
    QFETCH(QString, name);
    QFETCH(QString, title);

    QCOMPARE(Title(name), title);
}

QTEST_MAIN(TestPictures)
#include "TestPictures.moc"
