// Panels: the place and the look of the caption, checked by the painted pixels.
#include "platform/controls/sspanel.h"

#include "platform/look/paper.h"
#include "testmain.h"

#include <QSignalSpy>

namespace {
QFont Arial(double points)
{
    QFont font(u"Arial"_s);
    font.setPointSizeF(points);
    return font;
}

struct Panel : SSPanel
{
    Panel(const QString& caption, double points, const QSize& size = {150, 90})
    {
        SetCaptionFont(Arial(points));
        SetCaption(caption);
        resize(size);
    }
    QImage Look() { return grab().toImage(); }
    QRect Ink() // the rectangle of all pixels that differ from the paper
    {
        const QImage image = Look();
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) != Paper()) ink |= QRect(x, y, 1, 1);
        }
        return ink;
    }
    int Light(int x, int y) { return qGray(Look().pixel(x, y)); }
};
} // namespace

class SSPanelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captionStands()
    {
        Panel panel(u" 12"_s, 9);
        QCOMPARE(panel.Caption(), u" 12"_s);
        QCOMPARE(panel.accessibleName(), u"12"_s);
        for (const int alignment : {0, 1, 2, 3, 4, 5, 6, 7, 8, 12}) { // 12 is invalid
            panel.SetCaptionAlignment(alignment);
            const QRect ink = panel.Ink();
            const int column = alignment == 12 ? 0 : QList{0, 2, 1}[alignment / 3], row = alignment % 3;
            QCOMPARE(ink.center().x() * 3 / 150, column);
            QCOMPARE(ink.center().y() * 3 / 90, row);
            if (column == 1) QVERIFY(std::abs(ink.center().x() - 74) <= 1);
            if (row == 1) QVERIFY(std::abs(ink.center().y() - 44) <= 1);
        }
    }

    void captionKeepsClearOfTheNote()
    {
        for (const double points : {8.0, 9.0, 10.0, 12.0, 14.0, 16.0}) {
            const QRect ink = Panel(u"28"_s, points).Ink();
            QVERIFY(ink.top() >= 2 && ink.bottom() < paper::CaptionBand);
            QVERIFY(ink.left() >= 6 && ink.left() <= 9);
            QVERIFY(std::abs(ink.top() - (paper::CaptionBand - 1 - ink.bottom())) <= 2);
        }
    }

    void longCaptionStaysInside()
    {
        Panel panel(u"SEPTEMBER "_s.repeated(5), 12);
        for (const int alignment : {SSPanel::LeftTop, SSPanel::CenterMiddle, SSPanel::RightBottom}) {
            panel.SetCaptionAlignment(alignment);
            for (const int width : {150, 60, 5}) {
                panel.resize(width, 40);
                const QRect ink = panel.Ink();
                QVERIFY(ink.isEmpty() || (ink.left() > 0 && ink.right() < width - 1));
            }
        }
        // Only the first letter, without an ellipsis.
        QCOMPARE(Panel(u"Wed"_s, 12, {30, 40}).Look(), Panel(u"W"_s, 12, {30, 40}).Look());
    }

    void effects()
    {
        for (int effect = 1; effect <= 4; ++effect) { // raised light and heavy, inset light and heavy
            const InRow inRow(this, QString::number(effect));
            const int direction = effect <= 2 ? 1 : -1; // of the shadow; 1 is right and down
            const int depth = effect % 2 ? 1 : 2;
            Panel panel(u"l"_s, 20, {60, 60}); // a letter of one vertical stroke
            panel.SetPaper(paper::Band);
            const QImage flat = panel.Look();
            const QRect face = panel.Ink();
            panel.SetFont3D(effect);
            const int ground = qGray(paper::Band.rgb()), y = face.center().y();
            const int first = direction > 0 ? face.right() : face.left();
            const int last = direction > 0 ? face.left() : face.right();
            for (int step = 1; step <= 3; ++step) {
                const int shadow = panel.Light(first + direction * step, y);
                QCOMPARE(shadow < ground, step <= depth);
                QCOMPARE(panel.Light(last - direction * step, y) > ground, step <= depth);
                if (step <= depth) QVERIFY(shadow > panel.Light(face.center().x(), y) + 60); // subtle
            }
            panel.SetForeColor(0x808080); // for grey ink the effect is faint
            const int besideGrey = panel.Light(first + direction, y);
            QVERIFY(besideGrey < ground && besideGrey > ground - 25);
            panel.SetForeColor(0);
            panel.SetFont3D(9); // unknown effects are flat
            QCOMPARE(panel.Look(), flat);
        }
    }

    void colorsAndLines()
    {
        Panel panel(u"l"_s, 20, {40, 30});
        panel.SetForeColor(0x0000ff); // red is the low byte
        QCOMPARE(panel.Look().pixelColor(panel.Ink().center()), QColor(255, 0, 0));
        panel.SetEdges(Qt::LeftEdge | Qt::TopEdge);
        const auto at = [&](int x, int y) { return panel.Look().pixelColor(x, y); };
        QVERIFY(at(0, 20) == paper::Hairline && at(20, 0) == paper::Hairline);
        QVERIFY(at(39, 20) == paper::Paper && at(20, 29) == paper::Paper);
        panel.SetFrame(paper::TodayFrame);
        QVERIFY(at(0, 0) == paper::TodayFrame && at(39, 29) == paper::TodayFrame && at(30, 15) == paper::Paper);
        panel.SetActive(true); // drawn over the frame
        QCOMPARE(at(20, 1), paper::Accent);
        panel.SetHeld(true); // drawn over both
        QCOMPARE(at(20, 2), paper::LockFrame);
    }

    void clicks()
    {
        Panel panel({}, 9, {50, 50});
        QSignalSpy clicks(&panel, &SSPanel::Click), doubleClicks(&panel, &SSPanel::DblClick);
        QTest::mouseClick(&panel, Qt::LeftButton);
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
