#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/ErrorReport.hpp"
#include "platform/PlatformServices.hpp"

namespace pendulon {

class ApplicationEntryFileHost;
class Configurator;
class DeviceFace;
class EntryFileHost;
class Field;
class MainFace;
class SummaryFace;
class Window;
class frmPower;

// What every window may ask of the running program: its platform and error report, the
// program's globals, the lasting windows by the members other windows read, the entry file
// host, and the children of the main window. Application is the one object that answers it; a
// window holds a reference to it, never a global, so a test can build as many applications as
// it likes.
class AppServices {
  public:
    explicit AppServices(PlatformServices& services);
    virtual ~AppServices();
    AppServices(const AppServices&) = delete;
    AppServices& operator=(const AppServices&) = delete;

    PlatformServices& Services() { return services_; }
    ErrorReport& Errors() { return errors_; }

    // Globals of the program.
    std::string gstrSTX;
    std::string gstrETX;
    std::string gstrSpace;
    std::string gstrTitle;
    std::string gstrTitleTM;
    std::string gstrBuild;
    std::string gstrDesignTool;
    int gintTwipsPerPixelX = 15;
    int gintTwipsPerPixelY = 15;
    bool gblnNeedsCalculate = false;
    // Set by the clock selection wizard: the next QX4860 starts in the 8-pin package.
    bool gblnWizard8Pin = false;
    static constexpr int kVersionMajor = 3;
    static constexpr int kVersionMinor = 71;
    static constexpr int kVersionRevision = 10;
    // Application name in the settings store.
    static constexpr const char* kSettingsApp = "Pendulon";

    // The lasting windows, as the other windows see them; they live from start to exit.
    virtual MainFace& Main() = 0;
    virtual DeviceFace& DeviceForm() = 0;
    virtual SummaryFace& Summary() = 0;
    // The power table the documents fill.
    virtual frmPower& Power() = 0;
    // What the entry-file classes of a document ask of the program.
    EntryFileHost& EntryHost();

    // An unloaded window for the device, or nullptr when the device has none (unknown, or its
    // window is not part of this build).
    virtual std::unique_ptr<Configurator> CreateConfigurator(const std::string& device) = 0;

    // Children of the main window: at most one configurator (the document), and the print
    // preview that stands in front of it while it is open.
    Configurator* Document() const { return document_.get(); }
    Window* Preview() const { return preview_.get(); }
    // The active child: the preview while it is open, else the document.
    Window* ActiveChild() const;
    bool ChildIsActive() const { return ActiveChild() != nullptr; }

    // Makes a loaded configurator the document (there must be none).
    void SetDocument(std::unique_ptr<Configurator> document);
    // Unloads the document: query unload with the mode, then unload. False when cancelled.
    bool UnloadDocument(int unloadMode);
    // The preview and what its Save does (it saves the document text it shows).
    void SetPreview(std::unique_ptr<Window> preview, std::function<void()> save = {});
    void SavePreview();
    // Unloads the preview; false when it refused.
    bool UnloadPreview();

    // The desktop hears of children as they come and go.
    std::function<void(Window&)> OnChildLoaded;
    std::function<void(Window&)> OnChildUnloading;
    // A picture area asks the view to let the user drag it (left button in its title).
    std::function<void(Field&)> OnFormMove;
    // Shows the clock selection wizard modally; a test may put its own in.
    std::function<void()> ShowDecisionTree;
    // The program asked to end (File, Exit, or the clean-up switch).
    std::function<void()> OnEnd;
    bool Ended() const { return ended_; }
    void End();

  protected:
    // Children go before the lasting windows they refer to: the application that owns those
    // windows calls this first when it goes.
    void CloseChildren();

  private:
    // The document was unloaded and is about to go: the lasting windows let go of it.
    virtual void DocumentUnloaded(Configurator& document) = 0;

    PlatformServices& services_;
    ErrorReport errors_;
    std::unique_ptr<ApplicationEntryFileHost> entryHost_;
    std::unique_ptr<Configurator> document_;
    std::unique_ptr<Window> preview_;
    std::function<void()> previewSave_;
    bool ended_ = false;
};

}  // namespace pendulon
