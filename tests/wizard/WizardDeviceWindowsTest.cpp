#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "WizardTestSupport.hpp"
#include "app/Configurator.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "platform/TextField.hpp"
#include "shell/frmDevice.hpp"

namespace pendulon::test {
namespace {

// The program with the device windows of this build.
struct RealProgram {
    RealProgram() {
        app.Main().MDIForm_Load("");
        platform.ClearMessages();
    }
    void RunWizard(const std::vector<std::string>& answers) {
        platform.QueueModal("frmDecisionTree", [answers](Window& w) {
            Walk(dynamic_cast<frmDecisionTree&>(w), answers);
        });
        app.Main().mnuDecisionTree.RaiseClick();
    }
    frmQX4860* QX4860() { return dynamic_cast<frmQX4860*>(app.Document()); }
    HeadlessPlatform platform;
    Application app{platform};
};

TEST(WizardPackage, FourAddressableFrequenciesOpenTheQX4860InTheEightPinPackage) {
    for (const char* variant :
         {"Field Programmable", "Factory Programmed", "Industrial Temperature"}) {
        SCOPED_TRACE(variant);
        RealProgram p;
        p.RunWizard({"No", "Yes", "4 Addressable Frequencies", variant});
        ASSERT_NE(p.QX4860(), nullptr);
        EXPECT_TRUE(p.QX4860()->opt8Pin.Value());
        EXPECT_FALSE(p.QX4860()->opt14Pin.Value());
        EXPECT_FALSE(p.app.gblnWizard8Pin);
        EXPECT_TRUE(p.platform.Messages().empty());
    }
}

TEST(WizardPackage, SixteenAddressableFrequenciesOpenTheQX4860InTheFourteenPinPackage) {
    RealProgram p;
    p.RunWizard({"No", "Yes", "16 Addressable Frequencies", "Field Programmable"});
    ASSERT_NE(p.QX4860(), nullptr);
    EXPECT_EQ(p.QX4860()->lblDevice.Caption(), "QX4860F");
    EXPECT_TRUE(p.QX4860()->opt14Pin.Value());
    EXPECT_FALSE(p.QX4860()->opt8Pin.Value());
}

TEST(WizardPackage, GoingBackFromFourToSixteenTakesTheLastAnswer) {
    RealProgram p;
    p.platform.QueueModal("frmDecisionTree", [](Window& window) {
        auto& w = dynamic_cast<frmDecisionTree&>(window);
        Walk(w, {"No", "Yes", "4 Addressable Frequencies"});
        Previous(w);
        Walk(w, {"16 Addressable Frequencies", "Factory Programmed"});
    });
    p.app.Main().mnuDecisionTree.RaiseClick();
    ASSERT_NE(p.QX4860(), nullptr);
    EXPECT_TRUE(p.QX4860()->opt14Pin.Value());
}

TEST(WizardPackage, EightPinChoiceDoesNotCarryOverToTheNextNewDocument) {
    RealProgram p;
    p.RunWizard({"No", "Yes", "4 Addressable Frequencies", "Factory Programmed"});
    ASSERT_NE(p.QX4860(), nullptr);
    ASSERT_TRUE(p.QX4860()->opt8Pin.Value());
    // File, New, QX4860: the default package.
    p.platform.QueueModal("frmDevice", [](Window& w) {
        auto& device = dynamic_cast<frmDevice&>(w);
        device.optQX4860.SetValue(true);
        device.cmdOK_Click();
    });
    p.app.Main().mnuNew.RaiseClick();
    ASSERT_NE(p.QX4860(), nullptr);
    EXPECT_TRUE(p.QX4860()->opt14Pin.Value());
}

TEST(WizardPackage, RoutesAwayFromPageFourLeaveTheFlagClear) {
    RealProgram p;
    p.app.gblnWizard8Pin = true;  // as if left over
    p.RunWizard({"No", "No", "Standard", "Factory Programmed"});
    ASSERT_NE(dynamic_cast<frmQX6105A*>(p.app.Document()), nullptr);
    EXPECT_FALSE(p.app.gblnWizard8Pin);
}

TEST(WizardDeviceWindows, CloseQuestionOfAnEditedDocumentDecidesWhetherTheWizardReplacesIt) {
    RealProgram p;
    p.RunWizard({"No", "No", "Standard", "Factory Programmed"});
    auto* qx6105a = dynamic_cast<frmQX6105A*>(p.app.Document());
    ASSERT_NE(qx6105a, nullptr);
    qx6105a->Fields().FindAs<TextField>("txtPLL(0)")->SetText("100");
    // Cancel: the edited QX6105A stays, and the device window names it again.
    p.platform.QueueAnswer(msgbox::Cancel);
    p.RunWizard({"No", "Yes", "4 Addressable Frequencies", "Factory Programmed"});
    ASSERT_EQ(p.app.Document(), qx6105a);
    EXPECT_EQ(qx6105a->Fields().FindAs<TextField>("txtPLL(0)")->Text(), "100");
    EXPECT_EQ(p.app.DeviceForm().mstrCurrentDevice, "QX6105A");
    EXPECT_FALSE(p.app.gblnWizard8Pin);
    // No: the QX4860 takes its place, in the package the wizard chose.
    p.platform.QueueAnswer(msgbox::No);
    p.RunWizard({"No", "Yes", "4 Addressable Frequencies", "Factory Programmed"});
    ASSERT_NE(p.QX4860(), nullptr);
    EXPECT_TRUE(p.QX4860()->opt8Pin.Value());
    int questions = 0;
    for (const auto& message : p.platform.Messages())
        if (message.Text.rfind("Save changes to ", 0) == 0)
            ++questions;
    EXPECT_EQ(questions, 2);
}

TEST(WizardDeviceWindows, QX6105ARouteOpensTheRealWindow) {
    RealProgram p;
    p.RunWizard({"No", "No", "Standard", "Industrial Temperature"});
    auto* form = dynamic_cast<frmQX6105A*>(p.app.Document());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->lblDevice.Caption(), "QX6105AI");
    EXPECT_EQ(form->Device(), "QX6105AI");
}

// A device whose window this build does not have goes through the same LoadForm as the
// device window's OK, with its error.
TEST(WizardDeviceWindows, DeviceWithoutAWindowGetsTheInvalidSelectionError) {
    // A build whose device table has no window for the QX7312 family: Finish goes through the
    // same LoadForm as File, New, and so to its error.
    RealProgram p;
    p.app.ConfiguratorFactory = [](Application&, const std::string&) {
        return std::unique_ptr<Configurator>();
    };
    p.RunWizard({"Yes", "4, 5 or 6", "No", "Factory Programmed"});
    EXPECT_EQ(p.app.Document(), nullptr);
    ASSERT_EQ(p.platform.Messages().size(), 1u);
    EXPECT_EQ(p.platform.Messages()[0].Text,
              "The error number is: 10603\nThe source for the error is: frmMain.LoadForm\nThe "
              "description for the error is: An invalid device selection was made.");
}

}  // namespace
}  // namespace pendulon::test
