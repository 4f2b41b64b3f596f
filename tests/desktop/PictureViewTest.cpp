#include <QImage>
#include <QTest>

#include "DesktopTests.hpp"
#include "desktop/PictureView.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon::test {

namespace {
QImage Render(PictureView& view) {
    QImage image(view.size(), QImage::Format_RGB32);
    view.render(&image);
    return image;
}
}  // namespace

class PictureViewTest : public QObject {
    Q_OBJECT
  private slots:
    void sizeHintIsThePictureSizeInPixels() {
        PictureBox picture;
        picture.Move(0, 0, 1500, 600);
        PictureView view(picture, 15, 15);
        QCOMPARE(view.sizeHint(), QSize(100, 40));
    }

    void filledBoxIsPaintedAtItsPixelPlaceWithItsColours() {
        PictureBox picture;
        picture.SetBackColor(0xFFFFFF);
        picture.FilledBox(150, 150, 600, 600, 0x000000, 0x00FFFF);  // yellow fill
        PictureView view(picture, 15, 15);
        view.resize(60, 60);
        const QImage image = Render(view);
        QCOMPARE(QColor(image.pixel(20, 20)), QColor(255, 255, 0));
        QCOMPARE(QColor(image.pixel(10, 20)), QColor(0, 0, 0));      // the outline
        QCOMPARE(QColor(image.pixel(5, 5)), QColor(255, 255, 255));  // background
        QCOMPARE(QColor(image.pixel(50, 50)), QColor(255, 255, 255));
    }

    void lineAndBoxUseTheirColourAndTwipsScale() {
        PictureBox picture;
        picture.SetBackColor(0xFFFFFF);
        picture.Line(0, 300, 1500, 300, 0x0000FF);  // red, at pixel row 20
        picture.Box(300, 450, 600, 750, 0xFF0000);  // blue, 20..40 x 30..50
        PictureView view(picture, 15, 15);
        view.resize(100, 60);
        const QImage image = Render(view);
        QCOMPARE(QColor(image.pixel(50, 20)), QColor(255, 0, 0));
        QCOMPARE(QColor(image.pixel(20, 40)), QColor(0, 0, 255));
        QCOMPARE(QColor(image.pixel(30, 40)), QColor(255, 255, 255));  // inside, not filled
    }

    void textIsDrawnBelowItsTopPosition() {
        PictureBox picture;
        picture.SetBackColor(0xFFFFFF);
        picture.SetFont("Courier New", 12, true);
        picture.PrintAt(150, 150, "MMMM", 0x000000);
        PictureView view(picture, 15, 15);
        view.resize(120, 60);
        const QImage image = Render(view);
        bool inkBelow = false, inkAbove = false;
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 120; ++x) {
                if (QColor(image.pixel(x, y)).lightness() > 128)
                    continue;
                if (y < 10)
                    inkAbove = true;
                if (y >= 10)
                    inkBelow = true;
            }
        QVERIFY(inkBelow);
        QVERIFY(!inkAbove);
    }

    void arcFullCircleTouchesItsRadius() {
        PictureBox picture;
        picture.SetBackColor(0xFFFFFF);
        picture.Arc(750, 750, 450, 0x000000, 0, 0);  // centre 50,50 px, radius 30 px
        PictureView view(picture, 15, 15);
        view.resize(100, 100);
        const QImage image = Render(view);
        QVERIFY(QColor(image.pixel(80, 50)).lightness() < 128);
        QVERIFY(QColor(image.pixel(50, 20)).lightness() < 128);
        QCOMPARE(QColor(image.pixel(50, 50)), QColor(255, 255, 255));
    }

    void systemColoursComeFromThePalette() {
        PictureBox picture;
        picture.SetBackColor(colors::ButtonFace);
        PictureView view(picture, 15, 15);
        view.resize(10, 10);
        QPalette palette = view.palette();
        palette.setColor(QPalette::Button, QColor(1, 2, 3));
        view.setPalette(palette);
        QCOMPARE(QColor(Render(view).pixel(5, 5)), QColor(1, 2, 3));
    }

    void repaintsWhenThePictureNotifies() {
        PictureBox picture;
        PictureView view(picture, 15, 15);
        view.resize(20, 20);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QTRY_VERIFY(view.PaintCount() > 0);
        const int before = view.PaintCount();
        picture.Line(0, 0, 100, 100, 0);
        picture.Refresh();
        QTRY_VERIFY(view.PaintCount() > before);
    }
};

QObject* MakePictureViewTest() {
    return new PictureViewTest;
}

}  // namespace pendulon::test

#include "PictureViewTest.moc"
