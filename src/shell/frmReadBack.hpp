#pragma once
#include <memory>
#include <string>

#include "entryfile/clsFuseMap.hpp"
#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "reports/ReadBack.hpp"
#include "reports/frmPrintPreview.hpp"

namespace pendulon {

class Application;

// The read-back of a fuse map: which device it programs, what that chip makes from the
// reference the user gives, as a document that prints and saves as the print preview does, and
// the way back to an editable document. It stands in front of the document as the preview
// does.
class frmReadBack : public frmPrintPreview {
  public:
    explicit frmReadBack(Application& app);
    ~frmReadBack() override;

    // Reads the fuse map at path and shows it; the program's error report names the file and
    // the cause when it cannot be read, and then no window opens. Returns the window, which the
    // application owns, or null.
    static frmReadBack* Show(Application& app, const std::string& path);
    // Whether a path names a fuse map rather than an entry file: a ".jed" file, or a file that
    // begins with the start of a transmission.
    static bool IsFuseMapFile(const std::string& path);

    // Reads the fuse map at path into this window; false with the cause (nothing changes).
    bool ReadFuseMap(const std::string& path, std::string& cause);

    // The device chosen among those the map fits; false for a name that does not fit it.
    bool SelectDevice(const std::string& device);
    std::string Device() const { return cboDevice.Text(); }
    // The reference of the read-back, MHz.
    double Reference() const { return mdblReference; }
    // Takes a reference typed or picked in cboFRef: a number above 0, else the message and the
    // reference before stays. False when it was refused.
    bool ApplyReference();

    const clsFuseMap& FuseMap() const { return *mclsFuseMap; }
    const std::string& FilePath() const { return mstrPath; }
    // The read-back as it stands and its document text.
    ReadBack MakeReadBack() const;
    // The entry file of the read-back: the decoded fields, the frequencies the chip makes and
    // a common block that says where it comes from.
    std::string EntryFileText() const;
    // The entry file's name beside the fuse map: the same name with ".ent".
    std::string EntryFileName() const;

    void cboDevice_Click();
    void cboFRef_Click();
    void cboFRef_LostFocus();
    // Asks where to save the entry file, writes it and opens it as File, Open does. Where the
    // window's search then holds other counters than the fuses, a note tells which fields
    // differ.
    void cmdOpenDocument_Click();

    Label lblFile;
    Label lblDevice;
    ListField cboDevice;
    Label lblReference;
    ListField cboFRef;
    CommandButton cmdOpenDocument;

  protected:
    // A read-back is never unsaved work.
    bool DocumentUnsaved() const override { return false; }

  private:
    void Refresh();
    bool TakeReference();

    Application& app_;
    std::unique_ptr<clsFuseMap> mclsFuseMap;
    std::string mstrPath;
    double mdblReference = 14.31818;
    // Set while a reference is being taken: the list's own click must not take it again.
    bool mblnApplying = false;
};

}  // namespace pendulon
