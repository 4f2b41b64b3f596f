#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/ErrorReport.hpp"
#include "platform/PlatformServices.hpp"

namespace pendulon {

class Window;
class Field;
class PictureBox;
class Configurator;
class frmMain;
class frmDevice;
class frmSummary;
class frmPower;
class EntryFileHost;
class ShellEntryFileHost;

// The running program: its platform, its globals, the lasting windows and the children. There
// is no other global state, so a test can build as many applications as it likes.
class Application {
  public:
    explicit Application(PlatformServices& services);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

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

    // The lasting windows; they live from start to exit.
    frmMain& Main() { return *main_; }
    frmDevice& DeviceForm() { return *device_; }
    frmSummary& Summary() { return *summary_; }
    frmPower& Power() { return *power_; }
    // What the entry-file classes of a document ask of the program.
    EntryFileHost& EntryHost();

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

    // Creates the window of a device; when unset, the built-in device table is used. Tests and
    // the command line may put their own in.
    std::function<std::unique_ptr<Configurator>(Application&, const std::string&)>
        ConfiguratorFactory;

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

  private:
    PlatformServices& services_;
    ErrorReport errors_;
    std::unique_ptr<frmMain> main_;
    std::unique_ptr<frmDevice> device_;
    std::unique_ptr<frmSummary> summary_;
    std::unique_ptr<frmPower> power_;
    std::unique_ptr<ShellEntryFileHost> entryHost_;
    std::unique_ptr<Configurator> document_;
    std::unique_ptr<Window> preview_;
    std::function<void()> previewSave_;
    bool ended_ = false;
};

}  // namespace pendulon
