#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "app/EntryFileHost.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon {

class AppServices;
class Configurator;
class Field;

// The members of a QX3350 window the entry file runs beyond the shared ones.
class EntryForm3350 : public EntryForm {
  public:
    virtual void cboFRef_LostFocus() = 0;
    virtual void cboClockDivisors_Click() = 0;
    virtual void txtPLL_Change() = 0;
};

// Entry file, checksum and EPROM vector of the QX3350 and QX3350I: three frequencies, the
// voltage flag "# d" and sixteen fuse fields. The window's fields are reached by name.
class clsEntryFile3350 {
  public:
    explicit clsEntryFile3350(EntryFileHost& host);
    explicit clsEntryFile3350(AppServices& app);
    ~clsEntryFile3350();

    // Accepted only for the two devices; otherwise the form stays empty.
    void SetForm(Configurator& form);
    void SetForm(std::unique_ptr<EntryForm3350> form);
    EntryForm3350* Form() const { return form_.get(); }

    void MakeEntryFile();
    // True when the file was written.
    bool WriteEntryFile(const std::string& path);
    std::int16_t Checksum();
    std::int16_t CalculateChecksum(const clsEntryFile& entry) const;
    // True when the vector was written: never from an image made or read with errors, nor
    // with a value that does not fit its fuses.
    bool MakeEPROMVector(const std::string& path, bool fromForm);
    void Fill3350Form(const clsEntryFile& entry);
    // Fuse field n (0 to 13) of the form; P must already stand in i(14) for fields 11 and 12.
    void GetConfigurationEPROMBit(int intBitField, std::int16_t& result);

    clsEntryFile& Entry() { return entry_; }

    // The whole text of the entry file of an image.
    static std::string EntryFileText(const clsEntryFile& entry, const std::string& header,
                                     bool details);
    // The 45 fuses of an image, first fuse first.
    static std::string FuseMap(const clsEntryFile& entry);
    // The whole text of the EPROM vector of an image.
    static std::string EPROMVectorText(const clsEntryFile& entry, const std::string& title,
                                       const std::string& build);
    // The family checksum of an image.
    static std::int16_t CalculateChecksum(const clsEntryFile& entry, ErrorReport& errors);
    static bool IsFamilyDevice(const std::string& device);
    // The comment texts of the fields, as written with details on.
    static std::string CommentF(int n, bool details);
    static std::string CommentI(int n, bool details);

  private:
    bool On(const std::string& name);
    Field* Find(const std::string& name);
    void Raise(long number, const std::string& routine, const std::string& description);

    EntryFileHost& host_;
    std::unique_ptr<EntryForm3350> form_;
    clsEntryFile entry_;
    // An error was reported while the last MakeEntryFile made the image.
    bool mblnImageErrors = false;
};

}  // namespace pendulon
