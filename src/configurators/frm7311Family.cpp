#include "configurators/frm7311Family.hpp"

#include <utility>
#include <vector>

#include "app/AppServices.hpp"
#include "core/Numbers.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "core/clsReference.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "graphics/clsGraphics.hpp"

namespace pendulon {

frm7311Family::frm7311Family(AppServices& app, std::string formName, int cpllRows)
    : Configurator(app, std::move(formName)), cboCPLLData(cpllRows) {
    txtPLLMin.Resize(9);
    txtPLLMax.Resize(9);
    chkSuspendCPLL.SetCaption("Suspend");
    chkSuspendSPLL.SetCaption("Suspend");
    chkSuspendUPLL.SetCaption("Suspend");
}

frm7311Family::~frm7311Family() = default;

// ---------------------------------------------------------------- entry file

std::string frm7311Family::Checksum() {
    return IntegerText(EntryFile().Checksum());
}

const clsEntryFile* frm7311Family::MadeEntryImage() {
    EntryFile().MakeEntryFile();
    return &EntryFile().Entry();
}

bool frm7311Family::MakeEntryFile(const std::string& path) {
    EntryFile().MakeEntryFile();
    return EntryFile().WriteEntryFile(path);
}

bool frm7311Family::MakeEPROMVector(const std::string& path, bool fromForm) {
    return EntryFile().MakeEPROMVector(path, fromForm);
}

clsEntryFile7311& frm7311Family::EntryFileObject() {
    if (!mclsEntryFile)
        mclsEntryFile = std::make_shared<clsEntryFile7311>(App().EntryHost());
    return *mclsEntryFile;
}

void frm7311Family::AttachEntryFile() {
    EntryFileObject().SetForm(*this);
}

clsEntryFile7311& frm7311Family::EntryFile() {
    if (!mclsEntryFile)
        AttachEntryFile();
    return *mclsEntryFile;
}

void frm7311Family::Fill7311FromEntryFile(clsEntryFile& data) {
    EntryFile().Fill7311Form(data);
}

// ---------------------------------------------------------------- voltage and limits

double frm7311Family::DieVoltage() const {
    return mclsDie ? mclsDie->mdblVoltage : 5.0;
}

void frm7311Family::SetDieVoltage(double voltage) {
    Die().mdblVoltage = voltage;
}

void frm7311Family::GetCurrentPLLLimits() {
    DeviceRules().GetCurrentPLLLimits(*this, Reference(), Die());
}

void frm7311Family::SetNewPLLLimits() {
    DeviceRules().SetNewPLLLimits(*this, Reference(), Die());
}

bool frm7311Family::LimitsEqualDefaults() {
    std::vector<double> currentMin(cls7311Die::kElements), currentMax(cls7311Die::kElements);
    std::vector<double> defaultMin(cls7311Die::kElements), defaultMax(cls7311Die::kElements);
    Die().GetCurrentLimits(currentMin, currentMax);
    Die().GetDefaultLimits(defaultMin, defaultMax);
    return currentMin == defaultMin && currentMax == defaultMax;
}

double frm7311Family::ReferenceMinimum() const {
    return mclsReference ? mclsReference->Minimum() : 1;
}

double frm7311Family::ReferenceMaximum() const {
    return mclsReference ? mclsReference->Maximum() : 30;
}

void frm7311Family::SetDieDefaults(double minimum3V, double maximum3V, double minimum5V,
                                   double maximum5V) {
    cls7311Die& die = Die();
    die.mdblDefaultPLLMinimum3V = minimum3V;
    die.mdblDefaultPLLMaximum3V = maximum3V;
    die.mdblDefaultPLLMinimum5V = minimum5V;
    die.mdblDefaultPLLMaximum5V = maximum5V;
    die.SetDefaultLimits();
}

void frm7311Family::SetLoopCounters() {
    cls7311Die& die = Die();
    const bool v3 = die.mdblVoltage == 3.3;
    clsPLL& cpll = CPLL();
    cpll.mdblMinP = v3 ? die.mdblCPLLMinP3V : die.mdblCPLLMinP5V;
    cpll.mdblMaxP = v3 ? die.mdblCPLLMaxP3V : die.mdblCPLLMaxP5V;
    cpll.mdblMinQ = v3 ? die.mdblCPLLMinQ3V : die.mdblCPLLMinQ5V;
    cpll.mdblMaxQ = v3 ? die.mdblCPLLMaxQ3V : die.mdblCPLLMaxQ5V;
    clsPLL& spll = SPLL();
    spll.mdblMinP = v3 ? die.mdblSPLLMinP3V : die.mdblSPLLMinP5V;
    spll.mdblMaxP = v3 ? die.mdblSPLLMaxP3V : die.mdblSPLLMaxP5V;
    spll.mdblMinQ = v3 ? die.mdblSPLLMinQ3V : die.mdblSPLLMinQ5V;
    spll.mdblMaxQ = v3 ? die.mdblSPLLMaxQ3V : die.mdblSPLLMaxQ5V;
    clsPLL& upll = UPLL();
    upll.mdblMinP = v3 ? die.mdblUPLLMinP3V : die.mdblUPLLMinP5V;
    upll.mdblMaxP = v3 ? die.mdblUPLLMaxP3V : die.mdblUPLLMaxP5V;
    upll.mdblMinQ = v3 ? die.mdblUPLLMinQ3V : die.mdblUPLLMinQ5V;
    upll.mdblMaxQ = v3 ? die.mdblUPLLMaxQ3V : die.mdblUPLLMaxQ5V;
}

// ---------------------------------------------------------------- objects

clsPLL& frm7311Family::CPLL() {
    if (!mclsCPLL)
        mclsCPLL = std::make_unique<clsPLL>(App().Errors());
    return *mclsCPLL;
}

clsPLL& frm7311Family::SPLL() {
    if (!mclsSPLL)
        mclsSPLL = std::make_unique<clsPLL>(App().Errors());
    return *mclsSPLL;
}

clsPLL& frm7311Family::UPLL() {
    if (!mclsUPLL)
        mclsUPLL = std::make_unique<clsPLL>(App().Errors());
    return *mclsUPLL;
}

clsReference& frm7311Family::Reference() {
    if (!mclsReference)
        mclsReference = std::make_unique<clsReference>(App().Errors());
    return *mclsReference;
}

cls7311Die& frm7311Family::Die() {
    if (!mclsDie)
        mclsDie = std::make_unique<cls7311Die>(App().Errors());
    return *mclsDie;
}

clsQX7311& frm7311Family::DeviceRules() {
    if (!mclsDevice)
        mclsDevice = std::make_unique<clsQX7311>(App().Errors());
    return *mclsDevice;
}

clsGraphics& frm7311Family::Graphics() {
    if (!mclsGraphics) {
        mclsGraphics = std::make_unique<clsGraphics>(App().Errors(), App().gintTwipsPerPixelX,
                                                     App().gintTwipsPerPixelY);
    }
    return *mclsGraphics;
}

void frm7311Family::ReleaseFamilyObjects() {
    mclsCPLL.reset();
    mclsSPLL.reset();
    mclsUPLL.reset();
    mclsDie.reset();
    mclsReference.reset();
    mclsDevice.reset();
    mclsGraphics.reset();
    mclsEntryFile.reset();
}

}  // namespace pendulon
