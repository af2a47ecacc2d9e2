// Panels: where the caption stands and how it looks, by the pixels that are painted.
#include "platform/controls/sspanel.h"

#include "platform/look/paper.h"
#include "testmain.h"

#include <QImage>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>

namespace {
QFont Arial(double points)
{
    QFont font(u"Arial"_s);
    font.setPointSizeF(points);
    return font;
}

// The rectangle of all pixels that are not paper.
QRect InkOf(const QImage& image, const QColor& paper)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != paper) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

QRect InkOf(SSPanel& panel)
{
    return InkOf(panel.grab().toImage(), panel.Paper());
}

int Luminance(const QImage& image, QPoint at)
{
    return qGray(image.pixel(at));
}

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};
} // namespace

class SSPanelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captionStands_data()
    {
        QTest::addColumn<int>("alignment");
        QTest::addColumn<int>("column"); // 0 left, 1 middle, 2 right
        QTest::addColumn<int>("row");
        const int columns[] = {0, 2, 1}, rows[] = {0, 1, 2};
        for (int i = 0; i < 9; ++i)
            QTest::addRow("%d", i) << i << columns[i / 3] << rows[i % 3];
        QTest::newRow("unknown") << 12 << 0 << 0;
    }

    void captionStands()
    {
        QFETCH(int, alignment);
        QFETCH(int, column);
        QFETCH(int, row);
        SSPanel panel;
        panel.resize(150, 90);
        panel.SetCaption(u" 12"_s);
        panel.SetCaptionFont(Arial(9));
        panel.SetCaptionAlignment(alignment);
        const QRect ink = InkOf(panel);
        QCOMPARE(ink.center().x() * 3 / 150, column);
        QCOMPARE(ink.center().y() * 3 / 90, row);
        if (column == 1) QVERIFY(std::abs(ink.center().x() - 74) <= 1);
        if (row == 1) QVERIFY(std::abs(ink.center().y() - 44) <= 1);
    }

    void captionKeepsClearOfTheNote_data()
    {
        QTest::addColumn<double>("points");
        for (double points : {8.0, 9.0, 10.0, 12.0, 14.0, 16.0})
            QTest::addRow("%g", points) << points;
    }

    void captionKeepsClearOfTheNote()
    {
        QFETCH(double, points);
        SSPanel panel;
        panel.resize(150, 90);
        panel.SetCaptionFont(Arial(points));
        panel.SetCaption(u"28"_s);
        const QRect ink = InkOf(panel);
        QVERIFY(ink.top() >= 2 && ink.bottom() < paper::CaptionBand);
        QVERIFY(ink.left() >= 6 && ink.left() <= 9);
        QVERIFY(std::abs(ink.top() - (paper::CaptionBand - 1 - ink.bottom())) <= 2); // centred in its band
    }

    void longCaptionStaysInside()
    {
        SSPanel panel;
        panel.SetCaptionFont(Arial(12));
        panel.SetCaption(u"SEPTEMBER "_s.repeated(5));
        for (int alignment : {SSPanel::LeftTop, SSPanel::CenterMiddle, SSPanel::RightBottom}) {
            panel.SetCaptionAlignment(alignment);
            for (int width : {150, 60, 5}) {
                panel.resize(width, 40);
                const QRect ink = InkOf(panel);
                QVERIFY(ink.isEmpty() || (ink.left() > 0 && ink.right() < width - 1));
            }
        }
        panel.resize(30, 40);
        panel.SetCaption(u"Wed"_s);
        const QImage shortened = panel.grab().toImage();
        panel.SetCaption(u"W"_s); // its first letter, and no ellipsis
        QCOMPARE(panel.grab().toImage(), shortened);
    }

    void effects_data()
    {
        QTest::addColumn<int>("effect");
        QTest::addColumn<int>("direction"); // where the shadow falls: 1 down and right, -1 up and left
        QTest::addColumn<int>("depth");
        QTest::newRow("raised light") << 1 << 1 << 1;
        QTest::newRow("raised heavy") << 2 << 1 << 2;
        QTest::newRow("inset light") << 3 << -1 << 1;
        QTest::newRow("inset heavy") << 4 << -1 << 2;
    }

    void effects()
    {
        QFETCH(int, effect);
        QFETCH(int, direction);
        QFETCH(int, depth);
        SSPanel panel;
        panel.resize(60, 60);
        panel.SetPaper(paper::Band);
        panel.SetCaptionFont(Arial(20));
        panel.SetCaption(u"l"_s); // one upright
        const QImage flat = panel.grab().toImage();
        const QRect face = InkOf(flat, paper::Band);
        panel.SetFont3D(effect);
        const QImage image = panel.grab().toImage();
        const int ground = qGray(paper::Band.rgb());
        const int y = face.center().y();
        const int first = direction > 0 ? face.right() : face.left();
        const int last = direction > 0 ? face.left() : face.right();
        for (int step = 1; step <= 3; ++step) {
            const int shadow = Luminance(image, {first + direction * step, y});
            const int light = Luminance(image, {last - direction * step, y});
            QCOMPARE(shadow < ground, step <= depth);
            QCOMPARE(light > ground, step <= depth);
            if (step <= depth) QVERIFY(shadow > Luminance(image, {face.center().x(), y}) + 60); // subtle
        }
        for (int x = face.left() + 1; x < face.right(); ++x)
            QCOMPARE(image.pixel(x, y), flat.pixel(x, y));
        panel.SetForeColor(0x808080); // beside grey ink the effect is hardly seen
        const int besideGrey = Luminance(panel.grab().toImage(), {first + direction, y});
        QVERIFY(besideGrey < ground && besideGrey > ground - 25);
        panel.SetForeColor(0);
        panel.SetFont3D(9); // unknown is flat
        QCOMPARE(panel.grab().toImage(), flat);
    }

    void fontAndColor()
    {
        SSPanel panel;
        panel.resize(80, 40);
        panel.SetCaption(u"1111"_s);
        panel.SetCaptionFont(Arial(12));
        const QRect plain = InkOf(panel);
        panel.SetForeColor(0x0000ff); // red is the low byte
        const QImage red = panel.grab().toImage();
        bool isRed = false;
        for (int x = 0; x < red.width(); ++x)
            isRed |= red.pixelColor(x, plain.center().y()) == QColor(255, 0, 0);
        QVERIFY(isRed);
        QFont struck = Arial(12);
        struck.setStrikeOut(true);
        panel.SetCaptionFont(struck);
        QVERIFY(panel.grab().toImage() != red);
        panel.SetCaptionFont(Arial(16));
        QVERIFY(InkOf(panel).height() > plain.height());
    }

    void edgesAndFrame()
    {
        SSPanel panel;
        panel.resize(40, 30);
        panel.SetEdges(Qt::LeftEdge | Qt::TopEdge);
        const QImage edged = panel.grab().toImage();
        QCOMPARE(edged.pixelColor(0, 20), paper::Hairline);
        QCOMPARE(edged.pixelColor(20, 0), paper::Hairline);
        QCOMPARE(edged.pixelColor(39, 20), paper::Paper);
        QCOMPARE(edged.pixelColor(20, 29), paper::Paper);
        panel.SetFrame(paper::Accent);
        const QImage framed = panel.grab().toImage();
        for (QPoint at : {QPoint(0, 0), QPoint(20, 1), QPoint(39, 15), QPoint(20, 29), QPoint(39, 29)}) {
            QCOMPARE(framed.pixelColor(at), paper::Accent);
        }
        QCOMPARE(framed.pixelColor(20, 15), paper::Paper);
        panel.SetHeld(true); // in front of the others
        QCOMPARE(panel.grab().toImage().pixelColor(20, 1), paper::LockFrame);
        panel.SetHeld(false);
        panel.SetFrame(QColor());
        QCOMPARE(panel.grab().toImage(), edged);
    }

    void sameValuePaintsNothing()
    {
        SSPanel panel;
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        const auto set = [&](const QString& caption, int effect, std::uint32_t color) {
            panel.SetCaption(caption);
            panel.SetCaptionAlignment(effect);
            panel.SetFont3D(effect);
            panel.SetCaptionFont(Arial(8 + effect));
            panel.SetForeColor(color);
            panel.SetPaper(QColor::fromRgb(255, 255, int(color)));
            panel.SetEdges(effect == 1 ? Qt::LeftEdge : Qt::TopEdge);
            panel.SetFrame(QColor::fromRgb(int(color), 0, 0));
        };
        set(u"1"_s, 1, 1);
        QTest::qWait(20);
        PaintCounter counter;
        panel.installEventFilter(&counter);
        set(u"1"_s, 1, 1);
        QTest::qWait(20);
        QCOMPARE(counter.paints, 0);
        set(u"2"_s, 2, 2);
        QTRY_COMPARE(counter.paints, 1); // and many changes are painted once
    }

    void captionIsKeptAsGiven()
    {
        SSPanel panel;
        panel.SetCaption(u" 12"_s);
        QCOMPARE(panel.Caption(), u" 12"_s);
        QCOMPARE(panel.accessibleName(), u"12"_s);
    }

    void clicks()
    {
        SSPanel panel;
        panel.resize(50, 50);
        QSignalSpy clicks(&panel, &SSPanel::Click), doubleClicks(&panel, &SSPanel::DblClick);
        QTest::mouseClick(&panel, Qt::LeftButton);
        QCOMPARE(clicks.size(), 1);
        QTest::mousePress(&panel, Qt::LeftButton);
        QTest::mouseRelease(&panel, Qt::LeftButton, {}, {70, 5});
        QTest::mouseClick(&panel, Qt::RightButton);
        QCOMPARE(clicks.size(), 1);
        QTest::mouseDClick(&panel, Qt::LeftButton);
        QCOMPARE(doubleClicks.size(), 1);
    }
};

ORRELIN_TEST(SSPanelTest)
#include "sspaneltest.moc"
