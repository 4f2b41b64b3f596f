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

// Entry file, checksum and EPROM vector of the QX4860 family and the QX6105A family. The
// configurator's fields are reached by name; the class does not know the form's type.
class clsEntryFile4860 {
  public:
    explicit clsEntryFile4860(EntryFileHost& host);
    // Talks to the running application.
    explicit clsEntryFile4860(AppServices& app);
    ~clsEntryFile4860();

    // Accepted only for the six devices of the two families; otherwise the form stays empty.
    void SetForm(Configurator& form);
    void SetForm(std::unique_ptr<EntryForm> form);
    EntryForm* Form() const { return form_.get(); }

    void MakeEntryFile();
    // True when the file was written.
    bool WriteEntryFile(const std::string& path);
    std::int16_t Checksum();
    std::int16_t CalculateChecksum(const clsEntryFile& entry) const;
    // True when the vector was written: never from an image made or read with errors, nor
    // with a value that does not fit its fuses.
    bool MakeEPROMVector(const std::string& path, bool fromForm);
    void Fill4860Form(const clsEntryFile& entry);
    void Fill6105AForm(const clsEntryFile& entry);

    void GetConfigurationEPROMBit(EntryForm& form, const std::string& strWhichBit,
                                  std::int16_t& result);
    void GetCPUEPROMBit(EntryForm& form, const std::string& strWhichBit, int k, double& result);
    void GetCommentF(int n, std::string& result) const;
    void GetCommentI(int n, std::string& result) const;
    void CommentCPU(int b, std::string& result) const;

    clsEntryFile& Entry() { return entry_; }

    // The whole text of the entry file of an image.
    static std::string EntryFileText(const clsEntryFile& entry, const std::string& device,
                                     const std::string& header, bool details, bool outOfRange);
    // The 884 fuses of an image, first fuse first.
    static std::string FuseMap(const clsEntryFile& entry);
    // The whole text of the EPROM vector of an image.
    static std::string EPROMVectorText(const clsEntryFile& entry, const std::string& device,
                                       const std::string& title, const std::string& build,
                                       bool outOfRange);
    // The family checksum of an image (no form needed).
    static std::int16_t CalculateChecksum(const clsEntryFile& entry, ErrorReport& errors);
    static bool IsFamilyDevice(const std::string& device);
    static bool Is4860Device(const std::string& device);
    // The detailed comment of "# i" field n (0 to 129), the selection's name in front of the
    // fields of a selection.
    static std::string FieldComment(int n);

  private:
    bool OutOfRange();
    bool On(EntryForm& form, const std::string& name);
    Field* Find(EntryForm& form, const std::string& name);

    EntryFileHost& host_;
    std::unique_ptr<EntryForm> form_;
    clsEntryFile entry_;
    // An error was reported while the last MakeEntryFile made the image.
    bool mblnImageErrors = false;
};

}  // namespace pendulon
