#include "configurators/frm4860Family.hpp"

#include <array>
#include <utility>
#include <vector>

#include "app/AppServices.hpp"
#include "app/mHelp.hpp"
#include "core/Numbers.hpp"
#include "core/cls4860Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX4860.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "graphics/clsGraphics.hpp"

namespace pendulon {

frm4860Family::frm4860Family(AppServices& app, std::string formName, int rows,
                             FamilyDevices4860 devices)
    : DeviceWindow(app, std::move(formName)),
      txtPLL(rows),
      cboPLLData(rows),
      mDevices(std::move(devices)) {
    // A new window is captioned with its plain device's name.
    SetCaption(mDevices.plain);
    txtPLLMin.Resize(3);
    txtPLLMax.Resize(3);
    chkSmoothSlew.SetCaption("Smooth Slew");
    fraVoltage.SetCaption("Voltage");
    fraReference.SetCaption("Reference");
    lblFRefMin.SetCaption("FRef Min");
    lblFRefMax.SetCaption("FRef Max");
}

frm4860Family::~frm4860Family() = default;

void frm4860Family::SetDevice(const std::string& device) {
    Configurator::SetDevice(device);
    EntryFile().SetForm(*this);
}

void frm4860Family::ConnectFamilyEvents() {
    cboFRef.OnGotFocus = [this] { mHelp::ShowDeviceHint(1, *this); };
    cboFRef.OnClick = [this] {
        MarkCalculateDue();
        CalculateAllDesiredClocks();
    };
    ConnectLimitFieldHelp();
    chkSmoothSlew.OnClick = [this] { chkSmoothSlew_Click(); };
    chkSmoothSlew.OnGotFocus = [this] { mHelp::ShowDeviceHint(10, *this); };
    chkSmoothSlew.OnLostFocus = [this] { mHelp::ShowHint(0, *this); };
}

void frm4860Family::ConnectPLLRow(int i, const std::string& word) {
    txtPLL[i].OnChange = [this, i] { txtPLL_Change(i); };
    ConnectFrequencyFieldHelp(
        txtPLL[i], word, [this] { return Die().MinimumPLLVoltage(); },
        [this] { return Die().MaximumPLLVoltage(); });
    txtPLL[i].OnLostFocus = [this, i] { txtPLL_LostFocus(i); };
    cboPLLData[i].OnClick = [this, i] { cboPLLData_Click(i); };
}

// ---------------------------------------------------------------- shared fields

void frm4860Family::CaptionOptionPair(Frame& frame, const char* caption, OptionButton& first,
                                      const char* firstCaption, OptionButton& second,
                                      const char* secondCaption, const char* group) {
    frame.SetCaption(caption);
    first.SetCaption(firstCaption);
    second.SetCaption(secondCaption);
    first.SetGroup(group);
    second.SetGroup(group);
}

void frm4860Family::RegisterVoltageAndReference() {
    Register("fraVoltage", fraVoltage);
    RegisterVoltageFields();
    Register("fraReference", fraReference);
    RegisterReferenceFields();
    Register("lblFRefMin", lblFRefMin);
    Register("lblFRefMax", lblFRefMax);
}

void frm4860Family::txtPLL_Change(int) {
    MarkCalculateDue();
}

void frm4860Family::txtPLL_LostFocus(int Index) {
    LeaveFrequencyField(txtPLL[Index], Die().MinimumPLLVoltage(), Die().MaximumPLLVoltage());
}

void frm4860Family::chkSmoothSlew_Click() {
    MarkCalculateDue();
}

double frm4860Family::Frequency(int i) const {
    return Val(txtPLL[i].Text());
}

// ---------------------------------------------------------------- voltage and limits

void frm4860Family::InitializeDieClass() {
    const std::string device = lblDevice.Caption();
    std::array<double, 2> minimum{};
    std::array<double, 2> maximum{};
    if (device == mDevices.plain || device == mDevices.industrial) {
        minimum = {4, 4};
        maximum = {150, 200};
    } else if (device == mDevices.fast) {
        minimum = {4, 4};
        maximum = {120, 160};
    } else {
        RaiseError(10301, "InitializeDieClass", "Invalid device: " + device);
        return;
    }
    Die().mdblVoltage = opt3V.Value() ? 3.3 : 5.0;
    Die().SetDefaultLimits(minimum, maximum);
}

void frm4860Family::InitializePLLClass() {
    InitializeOneLoop();
}

double frm4860Family::OutputMaximum() const {
    const bool threeVolt = DieVoltage() == 3.3;
    if (lblDevice.Caption() == mDevices.fast)
        return threeVolt ? 80 : 100;
    return threeVolt ? 100 : 130;
}

void frm4860Family::CheckOutputLimits(Field& field) {
    mShared::CheckLimits(field, kOutputMinimum, OutputMaximum());
}

// ---------------------------------------------------------------- objects

}  // namespace pendulon
