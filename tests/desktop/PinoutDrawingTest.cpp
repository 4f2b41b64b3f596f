#include <QGroupBox>
#include <QTest>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "desktop/PictureView.hpp"
#include "desktop/QtTextMetrics.hpp"
#include "desktop/ShellViews.hpp"
#include "platform/Color.hpp"
#include "platform/PictureBox.hpp"

namespace pendulon::test {

namespace {

struct Extent {
    double left = 0, top = 0, right = 0, bottom = 0;
    bool Overlaps(const Extent& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool Inside(const Extent& other) const {
        return left > other.left && right < other.right && top > other.top && bottom < other.bottom;
    }
};

bool IsNumber(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

double Snap(double length, double scale, int pixel) {
    return std::nearbyint(length * scale / pixel) * pixel;
}

// Checks a chip drawing as the screen shows it: every text is measured in the font it is
// painted in, and the body, the name, the pin numbers and the notch are found in the display
// list. The body is as wide as the drawing rule wants with these widths, the name lies inside
// it and clear of the numbers and of the notch.
void ExpectChipReadsCleanly(const PictureBox& picture, const std::string& name, double scale,
                            int pins, int tppX, int tppY) {
    const QtTextMetrics painted(tppX, tppY);
    const std::vector<DrawOp>& ops = picture.DisplayList();
    QVERIFY2(!ops.empty(), name.c_str());

    // The body: the largest box filled with the button face.
    Extent body;
    double largest = 0;
    for (const DrawOp& op : ops) {
        if (op.type != DrawOp::Type::FilledBox || op.fillColor != colors::ButtonFace)
            continue;
        const double area = std::fabs((op.x2 - op.x1) * (op.y2 - op.y1));
        if (area > largest) {
            largest = area;
            body = {std::min(op.x1, op.x2), std::min(op.y1, op.y2), std::max(op.x1, op.x2),
                    std::max(op.y1, op.y2)};
        }
    }
    QVERIFY(largest > 0);

    auto extentOf = [&](const DrawOp& op) {
        const double w = painted.TextWidth(op.font, op.text);
        const double h = painted.TextHeight(op.font, op.text);
        return Extent{op.x1, op.y1, op.x1 + w, op.y1 + h};
    };
    const DrawOp* nameOp = nullptr;
    std::vector<Extent> numbers;
    for (const DrawOp& op : ops) {
        if (op.type != DrawOp::Type::Text)
            continue;
        if (op.text == name)
            nameOp = &op;
        else if (IsNumber(op.text))
            numbers.push_back(extentOf(op));
    }
    QVERIFY2(nameOp != nullptr, name.c_str());
    QCOMPARE(int(numbers.size()), pins);
    const Extent nameBox = extentOf(*nameOp);

    // Body width: the width of "0000" and of the name, two margins, whole pixels, at least
    // the least body width.
    const double margin = Snap(90, scale, tppX);
    const double least = Snap(1200, scale, tppX);
    const double wanted = std::max(least, painted.TextWidth(nameOp->font, "0000") +
                                              painted.TextWidth(nameOp->font, name) + 2 * margin);
    const double width = body.right - body.left;
    QVERIFY2(width >= wanted - tppX && width <= wanted + tppX,
             qPrintable(QString("%1: body %2 twips wide, the rule wants %3")
                            .arg(QString::fromStdString(name))
                            .arg(width)
                            .arg(wanted)));

    QVERIFY2(nameBox.Inside(body), name.c_str());
    for (const Extent& number : numbers) QVERIFY2(!number.Overlaps(nameBox), name.c_str());

    // The notch: the half circle at the middle of the top edge, clear of the name.
    double notchBottom = body.top;
    for (const DrawOp& op : ops)
        if (op.type == DrawOp::Type::Arc)
            notchBottom = std::max(notchBottom, op.y1 + op.radius);
    QVERIFY(notchBottom > body.top);
    QVERIFY(notchBottom < nameBox.top);
}

}  // namespace

class PinoutDrawingTest : public QObject {
    Q_OBJECT
  private slots:
    void qx6105aDocumentDrawsItsChipInThePaintedFont() {
        DocumentFixture f;
        f.NewDocument("QX6105A");
        auto& form = f.Form<frmQX6105A>();
        ExpectChipReadsCleanly(form.picPinout, "QX6105A", 1.0, 8, f.app->gintTwipsPerPixelX,
                               f.app->gintTwipsPerPixelY);
    }

    void qx4860DocumentDrawsBothPackagesInThePaintedFont() {
        DocumentFixture f;
        f.NewDocument("QX4860");
        auto& form = f.Form<frmQX4860>();
        const int tppX = f.app->gintTwipsPerPixelX, tppY = f.app->gintTwipsPerPixelY;
        // As the document opens, then with each package.
        ExpectChipReadsCleanly(form.picPinout, "QX4860", 1.0, form.opt14Pin.Value() ? 14 : 8, tppX,
                               tppY);
        for (OptionButton* package : {&form.opt8Pin, &form.opt14Pin, &form.opt8Pin}) {
            package->SetValue(true);
            ExpectChipReadsCleanly(form.picPinout, "QX4860", 1.0, package == &form.opt8Pin ? 8 : 14,
                                   tppX, tppY);
        }
    }

    void deviceSelectionDrawsItsChipsInThePaintedFontAndFillsTheFrame() {
        DocumentFixture f;
        ViewRegistry shellViews;
        RegisterShellViews(shellViews, *f.app);
        frmDevice& form = f.app->DeviceForm();
        form.Form_Load();
        std::unique_ptr<QWidget> view(shellViews.Create(form, nullptr));
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        const int tppX = f.app->gintTwipsPerPixelX, tppY = f.app->gintTwipsPerPixelY;
        ExpectChipReadsCleanly(form.picPinout[0], "QX6105A", 0.8, 8, tppX, tppY);

        // The picture takes the room of its frame, and the chip is drawn in its middle.
        auto* frame = view->findChild<QGroupBox*>("fraPinout");
        auto* first = view->findChild<PictureView*>("picPinout(0)");
        QVERIFY(frame != nullptr && first != nullptr);
        QTRY_COMPARE(first->width() * tppX, int(form.picPinout[0].Width()));
        QCOMPARE(first->height() * tppY, int(form.picPinout[0].Height()));
        QVERIFY(first->height() >= frame->contentsRect().height() - 40);

        form.optQX4860.SetEnabled(true);
        form.optQX4860.SetValue(true);
        QCOMPARE(form.mstrCurrentDevice, std::string("QX4860"));
        QTRY_VERIFY(view->findChild<PictureView*>("picPinout(1)")->isVisible());
        ExpectChipReadsCleanly(form.picPinout[0], "QX4860", 0.75, 8, tppX, tppY);
        ExpectChipReadsCleanly(form.picPinout[1], "QX4860", 0.75, 14, tppX, tppY);
    }
};

QObject* MakePinoutDrawingTest() {
    return new PinoutDrawingTest;
}

}  // namespace pendulon::test

#include "PinoutDrawingTest.moc"
