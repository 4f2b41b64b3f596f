#pragma once
#include <string>
#include <vector>

#include "platform/CommandButton.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Frame.hpp"
#include "platform/Label.hpp"
#include "platform/OptionButton.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class AppServices;

// The clock selection wizard: a modal window of nine stacked pages that leads the user through
// at most four questions to one device, then opens a new document for it as if the device had
// been chosen in the device window. Only the page in front is shown; the path of pages taken
// from page 0 to the one in front decides where Previous goes and which device Finish picks.
class frmDecisionTree : public Window {
  public:
    static constexpr int kPageCount = 9;
    static constexpr const char* kCaption = "Clock Selection Wizard";
    static constexpr const char* kInvalidIndex = "An invalid control array index was passed.";

    explicit frmDecisionTree(AppServices& app);

    Label lblTitle;
    // One element per page.
    ControlArray<Frame> fraDecision{kPageCount};
    ControlArray<Label> lblQuestion{kPageCount};
    ControlArray<Frame> fraResponse{kPageCount};
    ControlArray<OptionButton> opt1{kPageCount};
    ControlArray<OptionButton> opt2{kPageCount};
    ControlArray<OptionButton> opt3{kPageCount};
    ControlArray<OptionButton> opt4{kPageCount};
    ControlArray<CommandButton> cmdPrevious{kPageCount};
    ControlArray<CommandButton> cmdNext{kPageCount};
    ControlArray<CommandButton> cmdCancel{kPageCount};
    Label lblNotes;

    // The path of page indices from page 0 to the page in front, and its length.
    std::vector<int> mcolFrames;
    int mintFrameCount = 0;

    void Form_Load();
    // Releases the path and hides the window; a second unload does nothing.
    void Form_Unload();
    bool Loaded() const { return loaded_; }

    // Any option of a page enables that page's Next.
    void opt1_Click(int Index);
    void opt2_Click(int Index);
    void opt3_Click(int Index);
    void opt4_Click(int Index);
    void cmdNext_Click(int Index);
    void cmdPrevious_Click(int Index);
    void cmdCancel_Click(int Index);

    // The page brought to the front last, or -1 before the load.
    int FrontPage() const { return frontPage_; }
    // The page a field of this window stands on, or -1 for the window's own labels.
    int PageOf(const Field& field) const;

    // Shows the wizard modally, as the Help menu and the device window do. While it is up the
    // device window sees it as the active window, so that its OK can unload it.
    static void Show(AppServices& app);

  private:
    void OptionClick(int Index);
    void BringToFront(int page);
    // Moves on to the page unless it is the last one of the path already.
    void MoveTo(int page);
    // The device of the answer on page 3, or empty after an error was reported.
    std::string DeviceOfPage3();
    // Selects the device in the device window and opens a new document for it.
    void Finish(const std::string& device);
    // Reports an internal failure and unloads the window.
    void Fail(long number, const std::string& procedure);

    AppServices& app_;
    bool loaded_ = false;
    int frontPage_ = -1;
};

}  // namespace pendulon
