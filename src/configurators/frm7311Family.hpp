#pragma once
#include <memory>
#include <string>

#include "configurators/DeviceWindow.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsQX7311.hpp"
#include "entryfile/clsEntryFile7311.hpp"

namespace pendulon {

class clsPower7311;

// What the three-loop windows share: the QX7311 family window and the QX5140 window both run the
// CPLL, SPLL and UPLL of one die. They share the objects (the three loops, the die, the
// reference, the device rules, the drawing and the entry-file object, each created on first
// use), the loops' data lists and suspend boxes that the entry file stores for both, the nine
// limit pairs with their exchange between die, reference and limit fields, and the entry-file
// operations.
class frm7311Family : public DeviceWindow<cls7311Die, clsQX7311, clsEntryFile7311> {
  public:
    // cpllRows is the number of CPLL data lists the window shows: eight selections on the
    // QX7311 family, two on the QX5140.
    frm7311Family(AppServices& app, std::string formName, int cpllRows);
    ~frm7311Family() override;

    // The objects the window owns, created on first use.
    clsPLL& CPLL() { return Loop(0); }
    clsPLL& SPLL() { return Loop(1); }
    clsPLL& UPLL() { return Loop(2); }
    // The family's entry-file object, told on first use which window it serves.
    clsEntryFile7311& EntryFile() override;

    // Shared fields: the solutions of each loop and whether it stops under SUSPEND.
    ControlArray<ListField> cboCPLLData;
    ListField cboSPLLData;
    ListField cboUPLLData;
    CheckBox chkSuspendCPLL;
    CheckBox chkSuspendSPLL;
    CheckBox chkSuspendUPLL;

  protected:
    // Gives the die the default loop frequency limits of both voltages and resets every loop's
    // limits to them.
    void SetDieDefaults(double minimum3V, double maximum3V, double minimum5V, double maximum5V);
    // The counters of each loop from the die's fields of the present voltage.
    void SetLoopCounters();
    // The loops whose suspend box is ticked stop in the power model: their frequency is 0.
    void StopSuspendedLoops(clsPower7311& model) const;
    // The entry-file object is told that this window is its form; a window with fields of its
    // own (the QX5140) gives it a view of its own.
    virtual void AttachEntryFile();
    // The entry file's form fill of a QX7311 family file.
    void Fill7311FromEntryFile(clsEntryFile& data);
};

}  // namespace pendulon
