#include <QGroupBox>
#include <QTest>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX3350.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "configurators/frmQX7311.hpp"
#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "desktop/PictureView.hpp"
#include "desktop/ShellViews.hpp"
#include "graphics/clsGraphics.hpp"
#include "platform/Color.hpp"
#include "platform/PictureBox.hpp"
#include "configurators/frmQX5140.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "shell/ConfiguratorFactory.hpp"

namespace pendulon::test {

namespace {

struct Extent {
    double left = 0, top = 0, right = 0, bottom = 0;
    bool Overlaps(const Extent& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool Within(const Extent& other) const {
        return left >= other.left && right <= other.right && top >= other.top &&
               bottom <= other.bottom;
    }
};

constexpr double kPixel = 15;  // twips, at the test screen's 96 dots an inch

bool IsNumber(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Reads a chip drawing as a person reads it, from the boxes of what the display list draws,
// every text measured in the font it is painted in: every text inside the picture, no text over
// another, the chip's name and the pin numbers inside the body and the pin names outside it,
// a name for every pin, and every bar of an active-low pin inside the line of its own name.
void ExpectPinoutReads(const PictureBox& picture, const std::string& name, int pins,
                       const QString& where) {
    const std::vector<DrawOp>& ops = picture.DisplayList();
    QVERIFY2(!ops.empty(), qPrintable(where));
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
    QVERIFY2(largest > 0, qPrintable(where));
    const Extent frame{0, 0, picture.Width(), picture.Height()};
    struct Text {
        std::string text;
        Extent box;
    };
    std::vector<Text> texts;
    for (const DrawOp& op : ops) {
        if (op.type != DrawOp::Type::Text)
            continue;
        const double w = picture.Metrics().TextWidth(op.font, op.text);
        const double h = picture.Metrics().TextHeight(op.font, op.text);
        texts.push_back({op.text, Extent{op.x1, op.y1, op.x1 + w, op.y1 + h}});
    }
    int names = 0;
    std::vector<Extent> nameBoxes;
    for (const Text& t : texts) {
        const QString what = where + ": \"" + QString::fromStdString(t.text) + "\"";
        QVERIFY2(t.box.Within(frame), qPrintable(what + " reaches past the picture"));
        if (t.text == name || IsNumber(t.text)) {
            QVERIFY2(t.box.Within(body), qPrintable(what + " is not inside the body"));
        } else {
            QVERIFY2(!t.box.Overlaps(body), qPrintable(what + " lies over the body"));
            ++names;
            nameBoxes.push_back(t.box);
        }
    }
    for (size_t i = 0; i < texts.size(); ++i)
        for (size_t j = i + 1; j < texts.size(); ++j)
            QVERIFY2(!texts[i].box.Overlaps(texts[j].box),
                     qPrintable(where + ": \"" + QString::fromStdString(texts[i].text) +
                                "\" runs into \"" + QString::fromStdString(texts[j].text) + "\""));
    // The chip's name keeps clear of the pin numbers by more than a pixel: "QX486011" is no
    // name.
    for (const Text& t : texts) {
        if (t.text != name)
            continue;
        const Extent wider{t.box.left - 2 * kPixel, t.box.top, t.box.right + 2 * kPixel, t.box.bottom};
        for (const Text& number : texts)
            if (IsNumber(number.text))
                QVERIFY2(!wider.Overlaps(number.box),
                         qPrintable(where + ": the chip's name runs into pin " +
                                    QString::fromStdString(number.text)));
    }
    QVERIFY2(names == pins, qPrintable(QString("%1: %2 names for %3 pins").arg(where).arg(names).arg(pins)));
    for (const DrawOp& op : ops) {
        if (op.type != DrawOp::Type::Line || op.color != colors::ButtonText)
            continue;
        const bool inItsName = std::any_of(nameBoxes.begin(), nameBoxes.end(), [&](const Extent& b) {
            return op.y1 >= b.top && op.y1 < b.bottom && std::min(op.x1, op.x2) >= b.left &&
                   std::max(op.x1, op.x2) <= b.right;
        });
        QVERIFY2(inItsName, qPrintable(where + ": a bar stands outside the name it marks"));
    }
}

// The pinout of the printed document, a chip of characters: every pin named, the chip's name
// a blank clear of the body's sides, no name cut.
void ExpectTextPinoutReads(const Configurator& form, const QString& where) {
    const std::string image = mAsciiPrintout::GetDeviceImage(form, 0);
    const int pins = int(Val(form.PinName(0)));
    int rows = 0;
    std::istringstream lines(image);
    for (std::string line; std::getline(lines, line);) {
        if (line.find("|_|") != std::string::npos)
            rows += 2;
        const size_t at = line.find(form.Device());
        if (at != std::string::npos) {
            QVERIFY2(at > 0 && line[at - 1] == ' ' && line[at + form.Device().size()] == ' ',
                     qPrintable(where + ": the chip's name touches its body"));
        }
    }
    QCOMPARE(rows, pins);
    for (int i = 1; i <= pins; ++i) {
        const std::string pin = mShared::GetSubstring(form.PinName(i), "", ";");
        QVERIFY2(!pin.empty(), qPrintable(where + QString(": pin %1 has no name").arg(i)));
        QVERIFY2(image.find(pin) != std::string::npos,
                 qPrintable(where + ": " + QString::fromStdString(pin) + " is missing"));
    }
}

// The pins of a device's package in the device selection.
int PinsOf(const std::string& device) {
    if (device.rfind("QX7311", 0) == 0)
        return 20;
    if (device.rfind("QX7312", 0) == 0)
        return 16;
    return 8;
}

// The modes of a document that change its pinout, each tried in turn.
std::vector<std::function<void()>> PinoutModes(Configurator& form) {
    if (auto* f = dynamic_cast<frmQX4860*>(&form))
        return {[f] { f->opt8Pin.SetValue(true); }, [f] { f->opt14Pin.SetValue(true); }};
    if (auto* f = dynamic_cast<frmQX7311*>(&form))
        return {[f] { f->chkSuspend.SetValue(1); }, [f] { f->chkShutdown.SetValue(1); },
                [f] { f->chkSuspend.SetValue(0); }};
    if (auto* f = dynamic_cast<frmQX5140*>(&form))
        return {[f] { f->optSelect.SetValue(true); }, [f] { f->optShutdown.SetValue(true); }};
    if (auto* f = dynamic_cast<frmQX3350*>(&form))
        return {[f] { f->optPowerDown.SetValue(true); }, [f] { f->optOutputEnable.SetValue(true); }};
    if (auto* f = dynamic_cast<frmQX6105A*>(&form))
        return {[f] { f->optFS.SetValue(true); }, [f] { f->optOE.SetValue(true); }};
    return {};
}

}  // namespace

class PinoutDrawingTest : public QObject {
    Q_OBJECT
  private slots:
    void everyDocumentWindowAndPrintedDocumentDrawsAPinoutThatReads() {
        for (const char* device : TableDevices()) {
            DocumentFixture f;
            QVERIFY(f.ShowAndActivate());
            f.NewDocument(device);
            Configurator& form = *f.app->Document();
            const QString name = QString("%1 window").arg(device);
            const auto check = [&](const QString& mode) {
                const int pins = int(Val(form.PinName(0)));
                ExpectPinoutReads(form.picPinout, form.Device(), pins, name + mode);
                ExpectTextPinoutReads(form, QString("%1 document%2").arg(device, mode));
            };
            check("");
            int step = 0;
            for (const auto& mode : PinoutModes(form)) {
                mode();
                // As the window shows it, once the change is drawn.
                QTest::qWait(10);
                check(QString(" mode %1").arg(++step));
            }
        }
    }

    void deviceSelectionDrawsEveryChipScaledToItsFrame() {
        DocumentFixture f;
        ViewRegistry shellViews;
        RegisterShellViews(shellViews, *f.app);
        frmDevice& form = f.app->DeviceForm();
        form.Form_Load();
        std::unique_ptr<QWidget> view(shellViews.Create(form, nullptr));
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto* frame = view->findChild<QGroupBox*>("fraPinout");
        auto* first = view->findChild<PictureView*>("picPinout(0)");
        QVERIFY(frame != nullptr && first != nullptr);
        const int tppX = f.app->gintTwipsPerPixelX, tppY = f.app->gintTwipsPerPixelY;
        // The picture takes the room of its frame.
        QTRY_COMPARE(first->width() * tppX, int(form.picPinout[0].Width()));
        QCOMPARE(first->height() * tppY, int(form.picPinout[0].Height()));
        QVERIFY(first->height() >= frame->contentsRect().height() - 40);
        for (const char* device : TableDevices()) {
            OptionButton* option = form.OptionFor(device);
            QVERIFY(option != nullptr);
            option->SetEnabled(true);
            option->SetValue(true);
            QCOMPARE(form.mstrCurrentDevice, std::string(device));
            const bool two = std::string(device).rfind("QX4860", 0) == 0;
            QTRY_COMPARE(view->findChild<PictureView*>("picPinout(1)")->isVisible(), two);
            for (int i = 0; i < (two ? 2 : 1); ++i) {
                const PictureBox& picture = form.picPinout[i];
                const int pins = two ? (i == 0 ? 8 : 14) : PinsOf(device);
                const QString where = QString("%1 selection picture %2").arg(device).arg(i);
                ExpectPinoutReads(picture, device, pins, where);
                // Scaled to its frame: the chip is no small drawing in a large frame.
                const clsGraphics::Bounds drawn = clsGraphics::DrawingBounds(picture);
                const double across = (drawn.Right - drawn.Left) / picture.Width();
                const double down = (drawn.Bottom - drawn.Top) / picture.Height();
                QVERIFY2(std::max(across, down) >= 0.6,
                         qPrintable(where + QString(": the chip takes %1 by %2 of its frame")
                                                .arg(across)
                                                .arg(down)));
            }
        }
        KeepPicture(view.get(), "frmDevice-pinout");
    }
};

QObject* MakePinoutDrawingTest() {
    return new PinoutDrawingTest;
}

}  // namespace pendulon::test

#include "PinoutDrawingTest.moc"
