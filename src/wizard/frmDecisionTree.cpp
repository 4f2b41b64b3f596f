#include "wizard/frmDecisionTree.hpp"

#include <algorithm>

#include "app/AppServices.hpp"
#include "app/DeviceFace.hpp"
#include "platform/ErrorReport.hpp"

namespace pendulon {

namespace {

constexpr const char* kSource = "(frmDecisionTree) ";

// Size of the window and of a page, in twips.
constexpr double kWindowWidth = 6240;
constexpr double kWindowHeight = 4680;
constexpr double kPageLeft = 120;
constexpr double kPageTop = 720;
constexpr double kPageWidth = 6000;
constexpr double kPageHeight = 3480;

struct Page {
    const char* tag;
    const char* question;
    // Captions of opt1 to opt4; an empty caption means the page has no such option.
    const char* options[4];
};

// Pages 7 and 8 are end pages: no options and no Next.
constexpr Page kPages[frmDecisionTree::kPageCount] = {
    {"Frame D0", "Do you need more than one \"unrelated\" clock?", {"Yes", "", "No", ""}},
    {"Frame D01", "Do you need more than two addressable frequencies?", {"Yes", "", "No", ""}},
    {"Frame D011", "Do you need standard or high accuracy?", {"Standard", "", "High", ""}},
    {"Frame D99",
     "Select one of the following options.",
     {"Field Programmable", "Factory Programmed", "Industrial Temperature", ""}},
    {"Frame D012",
     "Select one of the following options.",
     {"4 Addressable Frequencies", "", "16 Addressable Frequencies", ""}},
    {"Frame D02",
     "Select the appropriate number of outputs you need from one of the following options.",
     {"3 or less", "4, 5 or 6", "7 or 8", "9 or more"}},
    {"Frame D021", "Do you need a 32KHz real-time clock?", {"Yes", "", "No", ""}},
    {"Frame D0111",
     "The device you wish to use is the QX3350. Please contact a Varnhol sales representative "
     "for more information on how you can order this device.",
     {"", "", "", ""}},
    {"Frame D022", "Call Factory.", {"", "", "", ""}},
};

bool IsEndPage(int page) {
    return page == 7 || page == 8;
}

}  // namespace

frmDecisionTree::frmDecisionTree(AppServices& app) : Window("frmDecisionTree"), app_(app) {
    lblTitle.SetCaption("Which Varnhol Programmable Clock is Right for You?");
    lblTitle.SetFont("MS Sans Serif", 12, true);
    lblTitle.SetAlignment(2);
    lblTitle.Move(120, 120, kPageWidth, 480);
    lblNotes.Move(120, kPageTop + kPageHeight + 60, kPageWidth, 300);
    Register("lblTitle", lblTitle);

    for (int i = 0; i < kPageCount; ++i) {
        const Page& page = kPages[i];
        std::string index = "(";
        index += std::to_string(i);
        index += ')';
        // At design time the pages lie side by side; the load stacks them.
        fraDecision[i].Move(kPageLeft + i * 240, kPageTop + i * 240, kPageWidth, kPageHeight);
        fraDecision[i].SetTag(page.tag);
        fraDecision[i].SetVisible(false);
        lblQuestion[i].SetCaption(page.question);
        lblQuestion[i].Move(120, 120, kPageWidth - 240, 720);
        fraResponse[i].Move(120, 900, kPageWidth - 240, 1800);
        fraResponse[i].SetVisible(!IsEndPage(i));
        OptionButton* options[4] = {&opt1[i], &opt2[i], &opt3[i], &opt4[i]};
        for (int k = 0; k < 4; ++k) {
            OptionButton& option = *options[k];
            option.SetCaption(page.options[k]);
            option.SetVisible(*page.options[k] != '\0');
            // The options of a page exclude each other, and only each other.
            option.SetGroup("fraResponse" + index);
            option.Move(240, 240 + k * 360, kPageWidth - 720, 300);
        }
        cmdPrevious[i].SetCaption("<< &Previous");
        cmdPrevious[i].SetVisible(i != 0);
        cmdNext[i].SetCaption(i == 3 ? "&Finish" : "&Next >>");
        cmdNext[i].SetVisible(!IsEndPage(i));
        // Next waits for an answer.
        cmdNext[i].SetEnabled(false);
        cmdCancel[i].SetCaption(IsEndPage(i) ? "&Close" : "&Cancel");
        cmdPrevious[i].Move(1200, 2880, 1455, 375);
        cmdNext[i].Move(2760, 2880, 1455, 375);
        cmdCancel[i].Move(4320, 2880, 1455, 375);

        Register("fraDecision" + index, fraDecision[i]);
        Register("lblQuestion" + index, lblQuestion[i]);
        Register("fraResponse" + index, fraResponse[i]);
        Register("opt1" + index, opt1[i]);
        Register("opt2" + index, opt2[i]);
        Register("opt3" + index, opt3[i]);
        Register("opt4" + index, opt4[i]);
        Register("cmdPrevious" + index, cmdPrevious[i]);
        Register("cmdNext" + index, cmdNext[i]);
        Register("cmdCancel" + index, cmdCancel[i]);

        opt1[i].OnClick = [this, i] { opt1_Click(i); };
        opt2[i].OnClick = [this, i] { opt2_Click(i); };
        opt3[i].OnClick = [this, i] { opt3_Click(i); };
        opt4[i].OnClick = [this, i] { opt4_Click(i); };
        cmdPrevious[i].OnClick = [this, i] { cmdPrevious_Click(i); };
        cmdNext[i].OnClick = [this, i] { cmdNext_Click(i); };
        cmdCancel[i].OnClick = [this, i] { cmdCancel_Click(i); };
    }
    Register("lblNotes", lblNotes);
}

void frmDecisionTree::Form_Load() {
    SetCaption(kCaption);
    Move(Left(), Top(), kWindowWidth, kWindowHeight);
    const double left = fraDecision[0].Left();
    const double top = fraDecision[0].Top();
    for (auto& page : fraDecision) page->Move(left, top);
    mcolFrames.clear();
    mcolFrames.push_back(0);
    mintFrameCount = 1;
    loaded_ = true;
    BringToFront(0);
}

void frmDecisionTree::Form_Unload() {
    if (!loaded_)
        return;
    loaded_ = false;
    mcolFrames.clear();
    mintFrameCount = 0;
    SetVisible(false);
}

int frmDecisionTree::PageOf(const Field& field) const {
    const std::string& name = field.Name();
    const size_t open = name.find('(');
    if (open == std::string::npos || name.back() != ')')
        return -1;
    return std::stoi(name.substr(open + 1, name.size() - open - 2));
}

void frmDecisionTree::BringToFront(int page) {
    frontPage_ = page;
    for (int i = 0; i < kPageCount; ++i) fraDecision[i].SetVisible(i == page);
}

void frmDecisionTree::OptionClick(int Index) {
    cmdNext[Index].SetEnabled(true);
}

void frmDecisionTree::opt1_Click(int Index) {
    OptionClick(Index);
}
void frmDecisionTree::opt2_Click(int Index) {
    OptionClick(Index);
}
void frmDecisionTree::opt3_Click(int Index) {
    OptionClick(Index);
}
void frmDecisionTree::opt4_Click(int Index) {
    OptionClick(Index);
}

void frmDecisionTree::Fail(long number, const std::string& procedure) {
    app_.Errors().Raise(number, kSource + procedure, kInvalidIndex);
    Form_Unload();
}

void frmDecisionTree::cmdNext_Click(int Index) {
    const char* procedure = "cmdNext_Click";
    int next = -1;
    switch (Index) {
        case 0:
            if (opt1[0].Value())
                next = 5;
            else if (opt3[0].Value())
                next = 1;
            else
                return Fail(10752, procedure);
            break;
        case 1:
            if (opt1[1].Value())
                next = 4;
            else if (opt3[1].Value())
                next = 2;
            else
                return Fail(10753, procedure);
            break;
        case 2:
            if (opt1[2].Value())
                next = 3;
            else if (opt3[2].Value())
                next = 7;
            else
                return Fail(10754, procedure);
            break;
        case 3: {
            const std::string device = DeviceOfPage3();
            if (!device.empty())
                Finish(device);
            return;
        }
        case 4:
            if (opt1[4].Value() || opt3[4].Value())
                next = 3;
            else
                return Fail(10759, procedure);
            break;
        case 5:
            if (opt1[5].Value())
                return Finish("QX5140");
            if (opt2[5].Value())
                next = 6;
            else if (opt3[5].Value())
                next = 3;
            else if (opt4[5].Value())
                next = 8;
            else
                return Fail(10762, procedure);
            break;
        case 6:
            if (opt1[6].Value() || opt3[6].Value())
                next = 3;
            else
                return Fail(10763, procedure);
            break;
        default:
            return Fail(10751, procedure);
    }
    MoveTo(next);
}

void frmDecisionTree::MoveTo(int page) {
    if (mcolFrames.empty() || page == mcolFrames.back())
        return Fail(10761, "cmdNext_Click");
    mcolFrames.push_back(page);
    ++mintFrameCount;
    BringToFront(page);
}

std::string frmDecisionTree::DeviceOfPage3() {
    const char* procedure = "cmdNext_Click";
    int option = 0;
    if (opt1[3].Value())
        option = 1;
    else if (opt2[3].Value())
        option = 2;
    else if (opt3[3].Value())
        option = 3;
    if (option == 0) {
        Fail(10755, procedure);
        return {};
    }
    // The page the user came from: the second-last entry of the path.
    const int previous = mintFrameCount >= 2 ? mcolFrames[size_t(mintFrameCount) - 2] : -1;
    const char* family = nullptr;
    switch (previous) {
        case 4:
            family = "QX4860";
            break;
        case 2:
            family = "QX6105A";
            break;
        case 5:
            family = "QX7311";
            break;
        case 6:
            if (opt1[6].Value()) {
                family = "QX7311";
            } else if (opt3[6].Value()) {
                family = "QX7312";
            } else {
                Fail(10763 + option, procedure);
                return {};
            }
            break;
        default:
            Fail(10755 + option, procedure);
            return {};
    }
    static constexpr const char* kSuffix[] = {"", "F", "", "I"};
    return std::string(family) + kSuffix[option];
}

void frmDecisionTree::Finish(const std::string& device) {
    DeviceFace& form = app_.DeviceForm();
    // The QX4860 has four frequency selections in its 8-pin package and sixteen in its 14-pin
    // one, so the answer on page 4 chooses the package the new document starts in.
    const bool through4 = std::find(mcolFrames.begin(), mcolFrames.end(), 4) != mcolFrames.end();
    app_.gblnWizard8Pin = through4 && opt1[4].Value();
    if (OptionButton* option = form.OptionFor(device))
        option->SetValue(true);
    form.CreateNew(true);
    form.cmdOK_Click();
    // A document that did not open (the close question was cancelled) leaves no package
    // choice behind for a later one.
    app_.gblnWizard8Pin = false;
}

void frmDecisionTree::cmdPrevious_Click(int Index) {
    const char* procedure = "cmdPrevious_Click";
    if (Index < 1 || Index > 8)
        return Fail(10760, procedure);
    if (mintFrameCount < 2) {
        // No page to go back to: the path has only its first entry.
        app_.Errors().Raise(errors::InvalidProcedureCall, kSource + std::string(procedure));
        Form_Unload();
        return;
    }
    BringToFront(mcolFrames[size_t(mintFrameCount) - 2]);
    mcolFrames.pop_back();
    --mintFrameCount;
}

void frmDecisionTree::cmdCancel_Click(int) {
    Form_Unload();
}

void frmDecisionTree::Show(AppServices& app) {
    frmDecisionTree wizard(app);
    DeviceFace& device = app.DeviceForm();
    auto activeBefore = device.ActiveWindow;
    auto unloadBefore = device.UnloadWindow;
    device.ActiveWindow = [&wizard, activeBefore]() -> Window* {
        if (wizard.Loaded())
            return &wizard;
        return activeBefore ? activeBefore() : nullptr;
    };
    device.UnloadWindow = [&wizard, unloadBefore](Window& window) {
        if (&window == &wizard)
            wizard.Form_Unload();
        else if (unloadBefore)
            unloadBefore(window);
    };
    wizard.Form_Load();
    app.Services().ShowModal(wizard);
    wizard.Form_Unload();
    device.ActiveWindow = activeBefore;
    device.UnloadWindow = unloadBefore;
}

}  // namespace pendulon
