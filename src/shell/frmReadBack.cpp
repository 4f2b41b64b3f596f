#include "shell/frmReadBack.hpp"

#include <filesystem>
#include <fstream>
#include <vector>

#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/clsReference.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/PlatformServices.hpp"
#include "platform/TextFile.hpp"
#include "reports/ApplicationPreviewHost.hpp"
#include "reports/mReadBackPrintout.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "app/mSharedApp.hpp"

namespace pendulon {

namespace {

constexpr long kNotAFuseMap = 10055;
constexpr long kInvalidReference = 10056;
constexpr long kFileAccessError = 75;
constexpr const char* kCrLf = "\r\n";
// Fields a note lists one by one; more are counted.
constexpr size_t kListedFields = 12;

// The fuse fields a document would write other values into than the fuse map holds.
std::vector<std::string> Differences(const ReadBack& fuses, const clsEntryFile& window) {
    std::vector<std::string> lines;
    for (const ReadBack::Field& field : fuses.Fields) {
        const int now = window.i(field.Index);
        if (now != field.Value)
            lines.push_back("  " + IntegerText(field.Index) + " " + field.Name + ": " +
                            IntegerText(field.Value) + " in the fuse map, " + IntegerText(now) +
                            " in the window");
    }
    return lines;
}

// After a read-back was opened as a document: tells the user where the window's own choices
// (its search, made again on loading) would program other fuses than the map holds.
void CompareWithDocument(Application& app, const ReadBack& fuses) {
    Configurator* document = app.Document();
    if (document == nullptr || document->Device() != fuses.Device)
        return;
    const clsEntryFile* image = document->MadeEntryImage();
    if (image == nullptr)
        return;
    const std::vector<std::string> lines = Differences(fuses, *image);
    if (lines.empty())
        return;
    std::string text =
        "NOTE: The " + fuses.Device +
        " window has chosen other settings than the fuse map holds.  Saved or" + kCrLf +
        "programmed as it stands, the document gives these fuse fields other values:" + kCrLf;
    for (size_t n = 0; n < lines.size() && n < kListedFields; ++n) text += lines[n] + kCrLf;
    if (lines.size() > kListedFields)
        text += "  and " + IntegerText(static_cast<long long>(lines.size() - kListedFields)) +
                " more." + kCrLf;
    text += "Pick the solutions in the drop downs, or keep the window's choice.";
    app.Services().MsgBox(text, msgbox::Information, app.gstrTitle);
}

// The preview's services of the program, with the fuse map as the document whose name a saved
// read-back takes.
class ReadBackPreviewHost : public ApplicationPreviewHost {
  public:
    ReadBackPreviewHost(Application& app, const frmReadBack& form)
        : ApplicationPreviewHost(app), form_(form) {}
    std::string DocumentName() override { return form_.FilePath(); }

  private:
    const frmReadBack& form_;
};

}  // namespace

frmReadBack::frmReadBack(Application& app)
    : frmPrintPreview("frmReadBack", app.Services(), app.Errors(),
                      std::make_unique<ReadBackPreviewHost>(app, *this)),
      app_(app),
      mclsFuseMap(std::make_unique<clsFuseMap>(app.Errors())) {
    SetCaption("Fuse Map Read-Back");
    lblDevice.SetCaption("Device:");
    lblReference.SetCaption("Reference (MHz):");
    cboFRef.SetAllowsFreeText(true);
    cmdOpenDocument.SetCaption("Open as &Document...");
    Register("lblFile", lblFile);
    Register("lblDevice", lblDevice);
    Register("cboDevice", cboDevice);
    Register("lblReference", lblReference);
    Register("cboFRef", cboFRef);
    Register("cmdOpenDocument", cmdOpenDocument);
    cboDevice.OnClick = [this] { cboDevice_Click(); };
    cboFRef.OnClick = [this] { cboFRef_Click(); };
    cboFRef.OnLostFocus = [this] { cboFRef_LostFocus(); };
    cmdOpenDocument.OnClick = [this] { cmdOpenDocument_Click(); };
    clsReference(app.Errors()).InitializeReferenceComboBox(cboFRef);
}

frmReadBack::~frmReadBack() = default;

bool frmReadBack::IsFuseMapFile(const std::string& path) {
    if (EqualsNoCase(std::filesystem::path(path).extension().string(), ".jed"))
        return true;
    std::ifstream in(path, std::ios::binary);
    char first = 0;
    while (in.get(first))
        if (first != ' ' && first != '\t' && first != '\r' && first != '\n')
            return first == '\x02';
    return false;
}

frmReadBack* frmReadBack::Show(Application& app, const std::string& path) {
    auto form = std::make_unique<frmReadBack>(app);
    std::string cause;
    app.Main().DisplayStatus("Reading fuse map...");
    if (!form->ReadFuseMap(path, cause)) {
        app.Main().DisplayStatus("");
        app.Errors().Raise(kNotAFuseMap, "(frmReadBack) ReadFuseMap",
                           "The file '" + path + "' cannot be read as a fuse map: " + cause + ".");
        return nullptr;
    }
    app.Main().DisplayStatus("");
    frmReadBack& window = *form;
    window.Form_Load();
    app.SetPreview(std::move(form), [&window] { window.cmdSave_Click(); });
    window.SetVisible(true);
    return &window;
}

bool frmReadBack::ReadFuseMap(const std::string& path, std::string& cause) {
    auto map = std::make_unique<clsFuseMap>(app_.Errors());
    if (!map->ReadFuseMap(path, cause))
        return false;
    mclsFuseMap = std::move(map);
    mstrPath = path;
    lblFile.SetCaption(mFileAccessor::GetFileName(path));
    SetCaption("Fuse Map Read-Back - " + mFileAccessor::GetFileName(path));
    cboDevice.Clear();
    for (const std::string& device : mclsFuseMap->Devices()) cboDevice.AddItem(device);
    // The click draws the read-back.
    SelectDevice(mclsFuseMap->DefaultDevice());
    return true;
}

bool frmReadBack::SelectDevice(const std::string& device) {
    for (int n = 0; n < cboDevice.ListCount(); ++n) {
        if (cboDevice.List(n) == device) {
            if (cboDevice.ListIndex() == n)
                Refresh();
            else
                cboDevice.SetListIndex(n);
            return true;
        }
    }
    return false;
}

bool frmReadBack::ApplyReference() {
    if (mblnApplying)
        return true;
    mblnApplying = true;
    const bool applied = TakeReference();
    mblnApplying = false;
    return applied;
}

bool frmReadBack::TakeReference() {
    const double value = Val(cboFRef.Text());
    if (!(value > 0) || value > 1000) {
        app_.Errors().Raise(kInvalidReference, "(frmReadBack) cboFRef_LostFocus",
                            "The reference frequency '" + cboFRef.Text() +
                                "' is not a frequency in MHz above 0 and up to 1000.");
        cboFRef.SetText(mShared::FormatFrequencyFixed(mdblReference) + " MHz");
        mShared::FormatReferenceComboBox(cboFRef);
        return false;
    }
    mShared::FormatReferenceComboBox(cboFRef);
    if (value != mdblReference) {
        mdblReference = value;
        Refresh();
    }
    return true;
}

void frmReadBack::cboDevice_Click() {
    Refresh();
}

void frmReadBack::cboFRef_Click() {
    ApplyReference();
}

void frmReadBack::cboFRef_LostFocus() {
    ApplyReference();
}

ReadBack frmReadBack::MakeReadBack() const {
    ReadBack rb = mclsFuseMap->MakeReadBack(Device(), mdblReference);
    rb.File = mFileAccessor::GetFileName(mstrPath);
    return rb;
}

void frmReadBack::Refresh() {
    if (!mclsFuseMap->Loaded() || Device().empty())
        return;
    txtPrintout.SetText(mReadBackPrintout::GetReadBackDocument(MakeReadBack()));
}

std::string frmReadBack::EntryFileText() const {
    const std::string header = mShared::EntryFileHeader(
        app_, "Read back from the fuse map " + mFileAccessor::GetFileName(mstrPath), "", "");
    return mclsFuseMap->EntryFileText(Device(), mdblReference, "", header,
                                      app_.Main().mblnSaveEntryFileDescription);
}

std::string frmReadBack::EntryFileName() const {
    return std::filesystem::path(mstrPath).replace_extension(".ent").string();
}

void frmReadBack::cmdOpenDocument_Click() {
    if (!mclsFuseMap->Loaded())
        return;
    CommonDialog& dialog = app_.Main().dlgCommon;
    dialog.DialogTitle = "Save Entry File As";
    dialog.CancelError = true;
    dialog.Filter = mFileAccessor::EntryFileFilter();
    dialog.FilterIndex = 1;
    dialog.DefaultExt = "ent";
    dialog.FileName = EntryFileName();
    dialog.InitDir = std::filesystem::path(mstrPath).parent_path().string();
    dialog.Flags = CommonDialog::EntryFileFlags & ~CommonDialog::FileMustExist;
    if (!app_.Services().ShowSave(dialog))
        return;
    const std::string path = dialog.FileName;
    // The document that is open answers its close question first; kept, nothing happens.
    if (app_.Document() != nullptr && !app_.UnloadDocument(kUnloadFormCode))
        return;
    const std::string failure = WriteTextFileAtomically(path, EntryFileText());
    if (!failure.empty()) {
        app_.Errors().Raise(kFileAccessError, "(frmReadBack) cmdOpenDocument_Click",
                            "Path/File access error: " + failure);
        return;
    }
    // Opening closes this window: what the comparison needs is taken now.
    Application& app = app_;
    const ReadBack fuses = MakeReadBack();
    app.Main().GetFile(path);
    CompareWithDocument(app, fuses);
}

}  // namespace pendulon
