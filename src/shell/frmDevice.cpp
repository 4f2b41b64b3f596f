#include "shell/frmDevice.hpp"

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "graphics/clsGraphics.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "shell/Application.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

namespace {
constexpr const char* kApp = "Pendulon";
constexpr double kPinoutWidth = 3600;
}  // namespace

frmDevice::frmDevice(Application& app) : DeviceFace("frmDevice"), app_(app) {
    SetCaption("Select Device");
    options_ = {{"QX6105A", &optQX6105A}, {"QX6105AF", &optQX6105AF}, {"QX6105AI", &optQX6105AI},
                {"QX7311", &optQX7311},   {"QX7311F", &optQX7311F},   {"QX7311I", &optQX7311I},
                {"QX7312", &optQX7312},   {"QX7312F", &optQX7312F},   {"QX7312I", &optQX7312I},
                {"QX4860", &optQX4860},   {"QX4860F", &optQX4860F},   {"QX4860I", &optQX4860I},
                {"QX5140", &optQX5140},   {"QX3350", &optQX3350},     {"QX3350I", &optQX3350I}};
    fraDevice.SetCaption("Device");
    Register("fraDevice", fraDevice);
    for (auto& [device, option] : options_) {
        option->SetGroup("fraDevice");
        option->SetCaption(device);
        Register("opt" + device, *option);
        const std::string name = device;
        option->OnClick = [this, name] { OptionClick(name); };
        option->OnDblClick = [this] { cmdOK_Click(); };
    }
    chkShowPinout.SetCaption("Show Pinout");
    fraPinout.SetCaption("Pinout");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
    cmdDecisionTree.SetCaption("Clock Selection Wizard...");
    Register("chkShowPinout", chkShowPinout);
    Register("fraPinout", fraPinout);
    RegisterArray("picPinout", picPinout);
    Register("cmdOK", cmdOK);
    Register("cmdCancel", cmdCancel);
    Register("cmdDecisionTree", cmdDecisionTree);
    chkShowPinout.OnClick = [this] { chkShowPinout_Click(); };
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdCancel.OnClick = [this] { cmdCancel_Click(); };
    cmdDecisionTree.OnClick = [this] { cmdDecisionTree_Click(); };
    // Wide enough for the longest pin names on both sides of the widest chip body at the
    // drawing scale, with room for screen fonts a little wider than the measured ones. The
    // second package of a family stands to the right of the first.
    picPinout[0].Move(3700, 360, kPinoutWidth, 3000);
    picPinout[1].Move(3700 + kPinoutWidth, 360, kPinoutWidth, 3000);
    Move(0, 0, kNarrowWidth, 4000);
}

void frmDevice::Form_Load() {
    // Devices whose window this build lacks cannot be chosen.
    for (auto& [device, option] : options_)
        option->SetEnabled(CreateConfigurator(app_, device) != nullptr);
    const int before = chkShowPinout.Value();
    const double stored = Val(app_.Services().GetSetting(kApp, "Setting", "DeviceShowPinout", "1"));
    chkShowPinout.SetValue(static_cast<int>(RoundHalfEven(stored)));
    if (chkShowPinout.Value() == before)
        chkShowPinout_Click();
    optQX6105A.SetValue(true);
    mstrPreviousDevice = mstrCurrentDevice;
}

OptionButton* frmDevice::OptionFor(const std::string& device) {
    for (auto& [name, option] : options_)
        if (name == device)
            return option;
    return nullptr;
}

void frmDevice::OptionClick(const std::string& device) {
    mstrCurrentDevice = device;
    DrawPinout();
}

void frmDevice::chkShowPinout_Click() {
    if (chkShowPinout.Value() != 0) {
        SetWidth(kWideWidth);
        DrawPinout();
    } else {
        SetWidth(kNarrowWidth);
    }
}

void frmDevice::DrawPinout() {
    picPinout[0].Cls();
    picPinout[1].Cls();
    const std::string& device = mstrCurrentDevice;
    clsGraphics graphics(app_.Errors(), app_.gintTwipsPerPixelX, app_.gintTwipsPerPixelY);
    std::vector<std::string> pins;
    if (device.rfind("QX4860", 0) == 0) {
        // Both packages of the family side by side, at one scale: the larger sets it.
        mAsciiPrintout::GetPinout4860p14(pins, "OE_ENABLE");
        picPinout[1].SetVisible(true);
        const double scale =
            graphics.DrawChipToFit(picPinout[1], device, pins, kLargestPinoutScale);
        pins.clear();
        mAsciiPrintout::GetPinout4860p8(pins, "");
        graphics.DrawChipToFit(picPinout[0], device, pins, scale);
        picPinout[0].Refresh();
        picPinout[1].Refresh();
        return;
    }
    // The option pins show the window's default mode.
    if (device.rfind("QX6105A", 0) == 0) {
        mAsciiPrintout::GetPinout6105A(pins, "OE");
    } else if (device.rfind("QX7311", 0) == 0) {
        mAsciiPrintout::GetPinout7311(pins, "SUSPEND+oe");
    } else if (device.rfind("QX7312", 0) == 0) {
        mAsciiPrintout::GetPinout7312(pins, "SUSPEND+oe");
    } else if (device.rfind("QX3350", 0) == 0) {
        mAsciiPrintout::GetPinout3350(pins, "OE");
    } else if (device == "QX5140") {
        mAsciiPrintout::GetPinout5140(pins, "OE");
    }
    picPinout[1].SetVisible(false);
    if (!pins.empty())
        graphics.DrawChipToFit(picPinout[0], device, pins, kLargestPinoutScale);
    picPinout[0].Refresh();
}

void frmDevice::cmdOK_Click() {
    app_.Services().SaveSetting(kApp, "Setting", "DeviceShowPinout",
                                std::to_string(chkShowPinout.Value()));
    if (ActiveWindow) {
        Window* active = ActiveWindow();
        if (active != nullptr && active->Caption() == "Clock Selection Wizard" && UnloadWindow)
            UnloadWindow(*active);
    }
    SetVisible(false);
    mblnOK = true;
    if (mblnNew)
        app_.Main().LoadForm();
}

void frmDevice::cmdCancel_Click() {
    mblnOK = false;
    SetVisible(false);
    mstrCurrentDevice = mstrPreviousDevice;
    if (OptionButton* option = OptionFor(mstrCurrentDevice))
        option->SetValue(true);
}

void frmDevice::cmdDecisionTree_Click() {
    if (app_.ShowDecisionTree)
        app_.ShowDecisionTree();
}

bool frmDevice::Form_QueryUnload(int unloadMode) {
    cmdCancel_Click();
    // Only the window's own close is refused; the program's own unload goes through.
    return unloadMode == 0;
}

}  // namespace pendulon
