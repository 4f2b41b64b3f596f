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
#include "power/clsPower7311.hpp"

namespace pendulon {

frm7311Family::frm7311Family(AppServices& app, std::string formName, int cpllRows)
    : DeviceWindow(app, std::move(formName)), cboCPLLData(cpllRows) {
    txtPLLMin.Resize(9);
    txtPLLMax.Resize(9);
    chkSuspendCPLL.SetCaption("Suspend");
    chkSuspendSPLL.SetCaption("Suspend");
    chkSuspendUPLL.SetCaption("Suspend");
}

frm7311Family::~frm7311Family() = default;

// ---------------------------------------------------------------- entry file

void frm7311Family::AttachEntryFile() {
    EntryFileObject().SetForm(*this);
}

clsEntryFile7311& frm7311Family::EntryFile() {
    if (!HasEntryFile())
        AttachEntryFile();
    return EntryFileObject();
}

void frm7311Family::Fill7311FromEntryFile(clsEntryFile& data) {
    EntryFile().Fill7311Form(data);
}

// ---------------------------------------------------------------- voltage and limits

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

void frm7311Family::StopSuspendedLoops(clsPower7311& model) const {
    if (chkSuspendCPLL.Value() == 1)
        model.mdblCPLL = 0;
    if (chkSuspendSPLL.Value() == 1)
        model.mdblSPLL = 0;
    if (chkSuspendUPLL.Value() == 1)
        model.mdblUPLL = 0;
}

}  // namespace pendulon
