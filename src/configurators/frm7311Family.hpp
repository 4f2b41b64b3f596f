#pragma once
#include <memory>
#include <string>

#include "app/Configurator.hpp"

namespace pendulon {

class clsPLL;
class clsReference;
class cls7311Die;
class clsQX7311;
class clsGraphics;
class clsEntryFile7311;

// What the three-loop windows share: the QX7311 family window and the QX5140 window both run the
// CPLL, SPLL and UPLL of one die. They share the objects (the three loops, the die, the
// reference, the device rules, the drawing and the entry-file object, each created on first
// use), the loops' data lists and suspend boxes that the entry file stores for both, the nine
// limit pairs with their exchange between die, reference and limit fields, and the entry-file
// operations.
class frm7311Family : public Configurator {
  public:
    // cpllRows is the number of CPLL data lists the window shows: eight selections on the
    // QX7311 family, two on the QX5140.
    frm7311Family(AppServices& app, std::string formName, int cpllRows);
    ~frm7311Family() override;

    // Configurator
    std::string Checksum() override;
    const clsEntryFile* MadeEntryImage() override;
    bool MakeEntryFile(const std::string& path) override;
    bool MakeEPROMVector(const std::string& path, bool fromForm) override;

    // The objects the window owns, created on first use.
    clsPLL& CPLL();
    clsPLL& SPLL();
    clsPLL& UPLL();
    clsReference& Reference();
    cls7311Die& Die();
    clsQX7311& DeviceRules();
    clsGraphics& Graphics();
    // The family's entry-file object, made on first use and told which window it serves.
    clsEntryFile7311& EntryFile();

    // Shared fields: the solutions of each loop and whether it stops under SUSPEND.
    ControlArray<ListField> cboCPLLData;
    ListField cboSPLLData;
    ListField cboUPLLData;
    CheckBox chkSuspendCPLL;
    CheckBox chkSuspendSPLL;
    CheckBox chkSuspendUPLL;

  protected:
    double DieVoltage() const override;
    void SetDieVoltage(double voltage) override;
    void GetCurrentPLLLimits() override;
    void SetNewPLLLimits() override;
    bool LimitsEqualDefaults() override;
    double ReferenceMinimum() const override;
    double ReferenceMaximum() const override;

    // Gives the die the default loop frequency limits of both voltages and resets every loop's
    // limits to them.
    void SetDieDefaults(double minimum3V, double maximum3V, double minimum5V, double maximum5V);
    // The counters of each loop from the die's fields of the present voltage.
    void SetLoopCounters();
    // The entry-file object is told that this window is its form; a window with fields of its
    // own (the QX5140) gives it a view of its own.
    virtual void AttachEntryFile();
    // The entry-file object, made on first use.
    clsEntryFile7311& EntryFileObject();
    // The entry file's form fill of a QX7311 family file.
    void Fill7311FromEntryFile(clsEntryFile& data);
    // Releases the family objects.
    void ReleaseFamilyObjects();

  private:
    std::unique_ptr<clsPLL> mclsCPLL;
    std::unique_ptr<clsPLL> mclsSPLL;
    std::unique_ptr<clsPLL> mclsUPLL;
    std::unique_ptr<cls7311Die> mclsDie;
    std::unique_ptr<clsReference> mclsReference;
    std::unique_ptr<clsQX7311> mclsDevice;
    std::unique_ptr<clsGraphics> mclsGraphics;
    std::shared_ptr<clsEntryFile7311> mclsEntryFile;
};

}  // namespace pendulon
