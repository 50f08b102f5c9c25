#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QFontInfo>
#include <QPainter>
#include <QPainterPath>
#include <QProcess>

namespace {

constexpr int badgeLeft = 38;
constexpr int badgeSize = 90;

const QRect badgeRect(badgeLeft, badgeLeft, badgeSize, badgeSize);

/// `upper` over `lower`, channel by channel; neither is premultiplied.
QColor over(const QColor &upper, const QColor &lower)
{
    const double a = upper.alphaF() + lower.alphaF() * (1 - upper.alphaF());
    const auto mix = [&](double up, double low) {
        return a <= 0 ? 0 : (up * upper.alphaF() + low * lower.alphaF() * (1 - upper.alphaF())) / a;
    };
    return QColor::fromRgbF(mix(upper.redF(), lower.redF()), mix(upper.greenF(), lower.greenF()),
                            mix(upper.blueF(), lower.blueF()), a);
}

/// The tray picture with an empty badge: 32 pixels scaled to 90 with nearest-neighbour sampling.
QColor expectedBackground(const QImage &tray, const QImage &counter, QPoint at)
{
    const QColor below = tray.pixelColor(at);
    if (!badgeRect.contains(at))
        return below;
    const QPoint inBadge = at - badgeRect.topLeft();
    // The source pixel under the centre of the pixel; on a boundary, the first of the two.
    const int column = ((2 * inBadge.x() + 1) * counter.width() - 1) / (2 * badgeSize);
    const int row = ((2 * inBadge.y() + 1) * counter.height() - 1) / (2 * badgeSize);
    return over(counter.pixelColor(column, row), below);
}

/// Equal except for the rounding of premultiplied colours, which grows with their transparency.
bool alike(const QColor &a, const QColor &b)
{
    if (qAbs(a.alpha() - b.alpha()) > 1)
        return false;
    const int tolerance = 2 + 255 / qMax(1, a.alpha());
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance
        && qAbs(a.blue() - b.blue()) <= tolerance;
}

/// The outline of the number at its place: centred in the badge, 70 points at 72 dots per inch.
QPainterPath expectedOutline(const QString &text)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(70);
    const QFontMetricsF metrics(font);
    const qreal left = badgeLeft + (badgeSize - metrics.horizontalAdvance(text)) / 2;
    const qreal baseline = badgeLeft + (badgeSize - metrics.height()) / 2 + metrics.ascent();
    QPainterPath path;
    path.addText(left, baseline, font, text);
    return path;
}

/// How much of each pixel the outline covers: all (255), part, or nothing (0).
QImage coverage(const QPainterPath &outline)
{
    constexpr int finer = 4;
    QImage fine(128 * finer, 128 * finer, QImage::Format_Grayscale8);
    fine.fill(Qt::black);
    QPainter painter(&fine);
    painter.scale(finer, finer);
    painter.fillPath(outline, Qt::white);
    painter.end();
    return fine.scaled(128, 128, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

/// The tray icon with the number of waiting patients, compared with a picture composed in the test.
class ServiceBadge : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void font_resolution_is_that_of_the_program();
    void font_is_thin_even_without_a_thin_font_on_this_machine();
    void picture_matches_around_and_inside_the_number_data();
    void picture_matches_around_and_inside_the_number();
    void numbers_above_99_look_the_same();
    void number_is_clipped_at_the_badge_s_edge();
    void picture_has_one_size();
    void larger_texts_do_not_change_the_size_of_the_number();

private:
    static QImage picture(int number);
};

void ServiceBadge::init()
{
    SettingsFile::forgetEverything();
}

QImage ServiceBadge::picture(int number)
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", number);
    running.call("refreshIcon");
    return running.tray().icon().pixmap(128, 128).toImage();
}

void ServiceBadge::font_resolution_is_that_of_the_program()
{
    QFont font("Arial");
    font.setPointSize(70);
    QCOMPARE(QFontInfo(font).pixelSize(), 70);
    QCOMPARE(QFontInfo(font).family(), QString("Liberation Sans"));
}

void ServiceBadge::font_is_thin_even_without_a_thin_font_on_this_machine()
{
    const QFont font = ObservedService::badgeFont();
    QCOMPARE(font.family(), QString("Arial"));
    QCOMPARE(font.pointSize(), 70);
    QCOMPARE(font.weight(), 10);
    QVERIFY(!font.italic());
}

void ServiceBadge::picture_matches_around_and_inside_the_number_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("box");

    QTest::newRow("1") << 1 << "1" << QRect(68, 59, 32, 49);
    QTest::newRow("2") << 2 << "2" << QRect(67, 58, 32, 50);
    QTest::newRow("9") << 9 << "9" << QRect(66, 58, 34, 51);
    QTest::newRow("10") << 10 << "10" << QRect(49, 58, 71, 51);
    QTest::newRow("99") << 99 << "99" << QRect(47, 58, 72, 51);
    QTest::newRow("100") << 100 << "99+" << QRect(38, 58, 90, 51);
    QTest::newRow("150") << 150 << "99+" << QRect(38, 58, 90, 51);
}

void ServiceBadge::picture_matches_around_and_inside_the_number()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QFETCH(QRect, box);
    const QImage tray(":/images/tray.png");
    const QImage counter(":/images/counter-big.png");
    QCOMPARE(tray.size(), QSize(128, 128));
    QCOMPARE(counter.size(), QSize(32, 32));
    const QImage covered = coverage(expectedOutline(text));

    const QImage drawn = picture(number);
    QCOMPARE(drawn.size(), QSize(128, 128));

    QRect changed;
    int inside = 0;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            const QPoint at(x, y);
            const QColor colour = drawn.pixelColor(at);
            const QColor background = expectedBackground(tray, counter, at);
            const QByteArray where = QString("%1,%2 is %3, background %4")
                                         .arg(x)
                                         .arg(y)
                                         .arg(colour.name(QColor::HexArgb), background.name(QColor::HexArgb))
                                         .toLatin1();
            if (!alike(colour, background)) {
                QVERIFY2(badgeRect.contains(at), where);
                changed |= QRect(at, QSize(1, 1));
            }
            // Within a pixel of the outline, the painter's antialiasing decides.
            bool surrounded = badgeRect.contains(at);
            bool near = false;
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    const QPoint neighbour = at + QPoint(dx, dy);
                    const int share = covered.rect().contains(neighbour) ? qGray(covered.pixel(neighbour)) : 0;
                    surrounded = surrounded && (share > 250 || !badgeRect.contains(neighbour));
                    near = near || share > 0;
                }
            }
            if (surrounded) {
                QVERIFY2(colour == QColor(255, 255, 255), where);
                ++inside;
            }
            if (!near)
                QVERIFY2(alike(colour, background), where);
        }
    }
    // Another release of the font may be hinted differently by a pixel.
    QVERIFY2(changed.adjusted(-1, -1, 1, 1).contains(box) && box.adjusted(-1, -1, 1, 1).contains(changed),
             qPrintable(
                 QString("%1,%2 %3x%4").arg(changed.x()).arg(changed.y()).arg(changed.width()).arg(changed.height())));
    QVERIFY2(inside > 100, "The number has no interior to compare");
}

void ServiceBadge::numbers_above_99_look_the_same()
{
    const QImage hundred = picture(100);
    QCOMPARE(picture(150), hundred);
    QCOMPARE(picture(100000), hundred);
    QVERIFY(picture(99) != hundred);
}

void ServiceBadge::number_is_clipped_at_the_badge_s_edge()
{
    // "99+" is wider than the badge and is clipped at its edge; the rest of the tray picture is unchanged.
    const QImage tray(":/images/tray.png");
    const QImage drawn = picture(100);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < badgeLeft; ++x)
            QVERIFY(alike(drawn.pixelColor(x, y), tray.pixelColor(x, y)));
    }
}

void ServiceBadge::picture_has_one_size()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 7);
    running.call("refreshIcon");
    QCOMPARE(running.tray().icon().availableSizes(), QList<QSize>({QSize(128, 128)}));
}

void ServiceBadge::larger_texts_do_not_change_the_size_of_the_number()
{
    // Qt reads the resolution of texts once: run this program again for the other test.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_FONT_DPI", "144");
    QProcess larger;
    larger.setProcessEnvironment(environment);
    larger.setProcessChannelMode(QProcess::MergedChannels);
    larger.start(QCoreApplication::applicationFilePath(), {"picture_matches_around_and_inside_the_number"});
    QVERIFY2(larger.waitForFinished(60000), qPrintable(larger.errorString()));
    QVERIFY2(larger.exitStatus() == QProcess::NormalExit && larger.exitCode() == 0, larger.readAll().constData());
}

SERVICE_TEST_MAIN(ServiceBadge)

#include "tst_ServiceBadge.moc"
