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

frm4860Family::frm4860Family(AppServices& app, std::string formName)
    : Configurator(app, std::move(formName)) {}

frm4860Family::~frm4860Family() = default;

void frm4860Family::ConnectFamilyEvents() {
    cboFRef.OnGotFocus = [this] { mHelp::ShowDeviceHint(1, *this); };
    cboFRef.OnClick = [this] {
        MarkCalculateDue();
        CalculateAllDesiredClocks();
    };
    ConnectLimitFieldHelp();
}

void frm4860Family::ConnectPLLFieldHelp(ControlArray<TextField>& txtPLL, int i,
                                        const std::string& word) {
    ConnectFrequencyFieldHelp(
        txtPLL[i], word, [this] { return Die().MinimumPLLVoltage(); },
        [this] { return Die().MaximumPLLVoltage(); });
}

// ---------------------------------------------------------------- entry file

std::string frm4860Family::Checksum() {
    return IntegerText(EntryFile().Checksum());
}

const clsEntryFile* frm4860Family::MadeEntryImage() {
    EntryFile().MakeEntryFile();
    return &EntryFile().Entry();
}

bool frm4860Family::MakeEntryFile(const std::string& path) {
    EntryFile().MakeEntryFile();
    return EntryFile().WriteEntryFile(path);
}

bool frm4860Family::MakeEPROMVector(const std::string& path, bool fromForm) {
    return EntryFile().MakeEPROMVector(path, fromForm);
}

// ---------------------------------------------------------------- voltage and limits

double frm4860Family::DieVoltage() const {
    return mclsDie ? mclsDie->mdblVoltage : 5.0;
}

void frm4860Family::SetDieVoltage(double voltage) {
    Die().mdblVoltage = voltage;
}

void frm4860Family::GetCurrentPLLLimits() {
    DeviceRules().GetCurrentPLLLimits(*this, Reference(), Die());
}

void frm4860Family::SetNewPLLLimits() {
    DeviceRules().SetNewPLLLimits(*this, Reference(), Die());
}

bool frm4860Family::LimitsEqualDefaults() {
    std::vector<double> currentMin(3), currentMax(3), defaultMin(3), defaultMax(3);
    Die().GetCurrentLimits(currentMin, currentMax);
    Die().GetDefaultLimits(defaultMin, defaultMax);
    return currentMin == defaultMin && currentMax == defaultMax;
}

double frm4860Family::ReferenceMinimum() const {
    return mclsReference ? mclsReference->Minimum() : 1;
}

double frm4860Family::ReferenceMaximum() const {
    return mclsReference ? mclsReference->Maximum() : 30;
}

void frm4860Family::InitializeDieDefaults(const std::string& plain, const std::string& industrial,
                                          const std::string& fast) {
    const std::string device = lblDevice.Caption();
    std::array<double, 2> minimum{};
    std::array<double, 2> maximum{};
    if (device == plain || device == industrial) {
        minimum = {4, 4};
        maximum = {150, 200};
    } else if (device == fast) {
        minimum = {4, 4};
        maximum = {120, 160};
    } else {
        RaiseError(10301, "InitializeDieClass", "Invalid device: " + device);
        return;
    }
    Die().mdblVoltage = opt3V.Value() ? 3.3 : 5.0;
    Die().SetDefaultLimits(minimum, maximum);
}

void frm4860Family::CheckOutputLimits(Field& field) {
    mShared::CheckLimits(field, 0.5, OutputMaximum());
}

// ---------------------------------------------------------------- objects

clsPLL& frm4860Family::PLL() {
    if (!mclsPLL)
        mclsPLL = std::make_unique<clsPLL>(App().Errors());
    return *mclsPLL;
}

clsReference& frm4860Family::Reference() {
    if (!mclsReference)
        mclsReference = std::make_unique<clsReference>(App().Errors());
    return *mclsReference;
}

cls4860Die& frm4860Family::Die() {
    if (!mclsDie)
        mclsDie = std::make_unique<cls4860Die>(App().Errors());
    return *mclsDie;
}

clsQX4860& frm4860Family::DeviceRules() {
    if (!mclsDevice)
        mclsDevice = std::make_unique<clsQX4860>(App().Errors());
    return *mclsDevice;
}

clsGraphics& frm4860Family::Graphics() {
    if (!mclsGraphics) {
        mclsGraphics = std::make_unique<clsGraphics>(App().Errors(), App().gintTwipsPerPixelX,
                                                     App().gintTwipsPerPixelY);
    }
    return *mclsGraphics;
}

clsEntryFile4860& frm4860Family::EntryFile() {
    if (!mclsEntryFile)
        mclsEntryFile = std::make_unique<clsEntryFile4860>(App().EntryHost());
    return *mclsEntryFile;
}

void frm4860Family::ReleaseFamilyObjects() {
    mclsPLL.reset();
    mclsReference.reset();
    mclsDie.reset();
    mclsDevice.reset();
    mclsGraphics.reset();
    mclsEntryFile.reset();
}

}  // namespace pendulon
