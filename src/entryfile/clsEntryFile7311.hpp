#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/Configurator.hpp"
#include "app/EntryFileHost.hpp"
#include "entryfile/FuseLayouts.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {

class AppServices;
class Field;

// The members of a three-loop window the QX7311 entry file uses beyond its named fields.
class EntryForm7311 {
  public:
    virtual ~EntryForm7311() = default;
    virtual std::string Device() const = 0;
    virtual Window& Fields() = 0;
    virtual void CheckPLLLimits() = 0;
    virtual void DisplayAllActuals() = 0;
    virtual void CalculatePower() = 0;
    virtual void cboFRef_LostFocus() = 0;
    virtual void cmdApplyLimits_Click() = 0;
    // What the QX5140 window adds: its Calculate, the case on show, the cases of its last
    // search (one row per case, one source text per output: CLKA in select states 0 and 1, CLKB,
    // CLKC) and the information box that tells how far a file could be matched.
    virtual void cmdCalculate_Click() {}
    virtual int CalculateCounter() const { return 0; }
    virtual std::vector<std::array<std::string, 4>> FoundSources() const { return {}; }
    virtual void ShowNote(const std::string& text) { (void)text; }
};

// A three-loop window seen through the members of the configurator contract the entry file
// uses; the QX5140 window adds its own.
class ConfiguratorEntryForm7311 : public EntryForm7311 {
  public:
    explicit ConfiguratorEntryForm7311(Configurator& form) : form_(form) {}
    std::string Device() const override { return form_.Device(); }
    Window& Fields() override { return form_; }
    void CheckPLLLimits() override { form_.CheckPLLLimits(); }
    void DisplayAllActuals() override { form_.DisplayAllActuals(); }
    void CalculatePower() override { form_.CalculatePower(); }
    void cboFRef_LostFocus() override { form_.cboFRef_LostFocus(); }
    void cmdApplyLimits_Click() override { form_.cmdApplyLimits_Click(); }

  private:
    Configurator& form_;
};

// Entry file, family checksum and EPROM vector of the QX7311 and QX7312 families and of the
// QX5140, which share one fuse layout: 24 frequencies and 69 fuse fields. The window's fields
// are reached by name; the class does not know the window's type.
class clsEntryFile7311 {
  public:
    explicit clsEntryFile7311(EntryFileHost& host);
    // Talks to the running application.
    explicit clsEntryFile7311(AppServices& app);
    ~clsEntryFile7311();

    // Accepted only for the seven devices of the layout; otherwise the form stays empty.
    void SetForm(Configurator& form);
    void SetForm(std::unique_ptr<EntryForm7311> form);
    EntryForm7311* Form() const { return form_.get(); }

    void MakeEntryFile();
    void Make7311EntryFile();
    void Make5140EntryFile();
    // True when the file was written.
    bool WriteEntryFile(const std::string& path);
    std::int16_t Checksum();
    std::int16_t CalculateChecksum(const clsEntryFile& entry) const;
    // True when the vector was written: never from an image made or read with errors, nor
    // with a value that does not fit its fuses.
    bool MakeEPROMVector(const std::string& path, bool fromForm);
    void Fill7311Form(const clsEntryFile& entry);
    void Fill5140Form(const clsEntryFile& entry);
    // The QX5140's way back from a file: the stored assignment looked up among the cases of a
    // fresh search, and the stored counters among the solutions of the loops.
    void SetQX5140PLLToClockAssignments(const clsEntryFile& entry, bool& found);
    void SetQX5140DropDowns(const clsEntryFile& entry, bool& found);
    // The CPLL VCO the QX5140 wants in select state 0 or 1: the desired frequency of the clock
    // on the CPLL times its divider.
    void DesiredCPLL(int state, double& result);
    // False when the last Fill5140Form met a reference it could not take: the form is not shown.
    bool FormShown() const { return mblnFormShown; }

    void ConvertPLLAndDivisorStringToInteger(const std::string& text, bool blnDivideByTwo,
                                             std::int16_t& result);
    void ConvertPLLAndDivisorIntegerToString(std::int16_t code, std::string& result);
    // The fuse code of a QX5140 source text as the window shows it. The QX5140's dividers are
    // twice those of the code table (its loops run at twice their target), so the divider is
    // halved first, as when a file is matched against the cases found; an empty text is an
    // output the case leaves off. A text without a code is reported and gives the fallback.
    std::int16_t QX5140SourceCode(const std::string& text, std::int16_t fallback);
    // The reverse: the source text, in the window's dividers, of a fuse code.
    std::string QX5140SourceText(std::int16_t code);
    void GetConfigurationEPROMBit(std::int16_t intBitField, std::int16_t& result);
    void GetCPUBit(std::int16_t field, std::int16_t index, bool off, std::int16_t& result);
    void GetCommentF(int n, std::string& result) const;
    void GetCommentI(int n, std::string& result) const;
    void GetCommentCPU(int s, int b, std::string& result) const;

    clsEntryFile& Entry() { return entry_; }
    EntryFileHost& Host() { return host_; }

    // The whole text of the entry file of an image.
    static std::string EntryFileText(const clsEntryFile& entry, const std::string& device,
                                     const std::string& header, bool details, bool outOfRange);
    // The date and program version that go into the identity row of a vector.
    struct Identity {
        std::string Checksum;  // caption of the summary's checksum label
        std::string Device;
        DateTime Date;
        EntryFileHost::Version Version;
    };
    // The ten fuse rows of an image: eight selection rows, the configuration and the identity.
    static std::string FuseRow(const clsEntryFile& entry, int row, const Identity& identity);
    // The values of the identity row as the fuse layout takes them.
    static FuseIdentity IdentityFuses(const Identity& identity);
    // The whole text of the EPROM vector of an image.
    static std::string EPROMVectorText(const clsEntryFile& entry, const std::string& device,
                                       const std::string& title, const std::string& build,
                                       const Identity& identity, bool outOfRange);
    // The detailed comment of "# i" field n (0 to 68).
    static std::string FieldComment(int n);
    // The fuse code of a source and divisor text (case ignored), or -1 for none. "Ref/3" is
    // CLKD's code 2.
    static int SourceCode(const std::string& text);
    // The device number the identity row holds for a device.
    static int DeviceNumber(const std::string& device);
    // The source and divisor text of an output's fuse code (0 to 31), or empty text.
    static std::string SourceText(int code);
    // A source text of the code table as the QX5140 window shows it: a loop's divider doubled.
    static std::string QX5140ShownSource(const std::string& text);
    // The family checksum of an image (no form needed).
    static std::int16_t CalculateChecksum(const clsEntryFile& entry, ErrorReport& errors);
    static bool IsFamilyDevice(const std::string& device);
    static bool Is7311Device(const std::string& device);

  private:
    // Calls the window's limit check and tells whether a loop frequency is out of range.
    bool OutOfRange();
    Field* Find(const std::string& name);
    template <class T>
    T* As(const std::string& name);
    bool On(const std::string& name);
    std::string TextOf(const std::string& name);
    std::int16_t IsOffValue(const std::string& name);
    std::int16_t CheckValue(const std::string& name);
    void Store(int index, double value, const char* source);
    double LargestVCO(bool all);

    bool mblnFormShown = true;
    // An error was reported while the last MakeEntryFile made the image.
    bool mblnImageErrors = false;
    EntryFileHost& host_;
    std::unique_ptr<EntryForm7311> form_;
    clsEntryFile entry_;
};

}  // namespace pendulon
