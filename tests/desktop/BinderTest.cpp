#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "DesktopTests.hpp"
#include "TestWindow.hpp"
#include "desktop/Binder.hpp"
#include "desktop/PictureView.hpp"

namespace pendulon::test {

namespace {

// A view of the test window built the way every view is: widgets named as their fields.
struct View {
    TestWindow window;
    std::unique_ptr<QWidget> root = std::make_unique<QWidget>();
    QLineEdit* txtValue = new QLineEdit(root.get());
    QLineEdit* txtOther = new QLineEdit(root.get());
    QComboBox* cboList = new QComboBox(root.get());
    QComboBox* cboFree = new QComboBox(root.get());
    QCheckBox* chkOption = new QCheckBox(root.get());
    QRadioButton* optFirst = new QRadioButton(root.get());
    QRadioButton* optSecond = new QRadioButton(root.get());
    QPushButton* cmdCalculate = new QPushButton(root.get());
    QLabel* lblInfo = new QLabel(root.get());
    QGroupBox* fraGroup = new QGroupBox(root.get());
    QScrollBar* vsbScroll = new QScrollBar(Qt::Vertical, root.get());
    PictureView* picDrawing;
    Binder* binder;

    View() {
        picDrawing = new PictureView(window.picDrawing, 15, 15, root.get());
        auto* layout = new QVBoxLayout(root.get());
        for (QWidget* w : std::initializer_list<QWidget*>{
                 txtValue, txtOther, cboList, cboFree, chkOption, optFirst, optSecond, cmdCalculate,
                 lblInfo, fraGroup, vsbScroll, picDrawing}) {
            layout->addWidget(w);
        }
        txtValue->setObjectName("txtValue");
        txtOther->setObjectName("txtOther");
        cboList->setObjectName("cboList");
        cboFree->setObjectName("cboFree");
        chkOption->setObjectName("chkOption");
        optFirst->setObjectName("optFirst");
        optSecond->setObjectName("optSecond");
        cmdCalculate->setObjectName("cmdCalculate");
        lblInfo->setObjectName("lblInfo");
        fraGroup->setObjectName("fraGroup");
        vsbScroll->setObjectName("vsbScroll");
        window.picDrawing.Move(0, 0, 1500, 750);
        binder = new Binder(window, root.get(), 15, 15);
    }
    void Show() {
        root->show();
        root->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(root.get()));
    }
};

}  // namespace

class BinderTest : public QObject {
    Q_OBJECT
  private slots:
    void bindsEveryWidgetNamedAsAField() {
        View v;
        QCOMPARE(v.binder->BoundCount(), 12);
        QCOMPARE(v.binder->WidgetOf(v.window.txtValue), v.txtValue);
    }

    void typingInATextFieldSetsTheTextAndFiresChange() {
        View v;
        v.Show();
        v.txtValue->setFocus();
        QTest::keyClicks(v.txtValue, "12.5");
        QCOMPARE(v.window.txtValue.Text(), std::string("12.5"));
        QCOMPARE(v.window.Count("txtValue.Change"), 4);
        // The caret stays behind the typed text.
        QCOMPARE(v.txtValue->cursorPosition(), 4);
        QCOMPARE(v.window.txtValue.SelStart(), 4);
    }

    void modelTextReachesTheWidgetWithoutEchoingBack() {
        View v;
        QSignalSpy edited(v.txtValue, &QLineEdit::textEdited);
        v.window.txtValue.SetText("Off");
        QCOMPARE(v.txtValue->text(), QString("Off"));
        QCOMPARE(edited.count(), 0);
        // Exactly the model's own Change, no second one from the widget.
        QCOMPARE(v.window.Count("txtValue.Change"), 1);
    }

    void modelSelectionSelectsInTheWidget() {
        View v;
        v.window.txtValue.SetText("100.000");
        v.window.txtValue.SetSelStart(0);
        v.window.txtValue.SetSelLength(7);
        QCOMPARE(v.txtValue->selectedText(), QString("100.000"));
    }

    void userSelectionReachesTheModel() {
        View v;
        v.window.txtValue.SetText("abcdef");
        v.txtValue->setSelection(1, 3);
        QCOMPARE(v.window.txtValue.SelStart(), 1);
        QCOMPARE(v.window.txtValue.SelLength(), 3);
        QCOMPARE(v.window.txtValue.SelText(), std::string("bcd"));
    }

    void lockedTextIsReadOnly() {
        View v;
        v.window.txtValue.SetLocked(true);
        QVERIFY(v.txtValue->isReadOnly());
    }

    void listEntriesAndIndexFollowTheModel() {
        View v;
        v.window.cboList.AddItem("3.3");
        v.window.cboList.AddItem("5.0");
        v.window.cboList.SetListIndex(1);
        QCOMPARE(v.cboList->count(), 2);
        QCOMPARE(v.cboList->itemText(0), QString("3.3"));
        QCOMPARE(v.cboList->currentIndex(), 1);
        QVERIFY(!v.cboList->isEditable());
        QCOMPARE(v.window.Count("cboList.Click"), 1);
        v.window.cboList.Clear();
        QCOMPARE(v.cboList->count(), 0);
    }

    void choosingAListEntrySetsListIndexAndFiresClickOnce() {
        View v;
        v.window.cboList.AddItem("3.3");
        v.window.cboList.AddItem("5.0");
        v.window.cboList.SetListIndex(0);
        v.window.events.clear();
        v.Show();
        v.cboList->setFocus();
        QTest::keyClick(v.cboList, Qt::Key_Down);
        QCOMPARE(v.window.cboList.ListIndex(), 1);
        QCOMPARE(v.window.Count("cboList.Click"), 1);
    }

    void freeTextListIsEditableAndTypedTextFiresChange() {
        View v;
        QVERIFY(v.cboFree->isEditable());
        v.window.cboFree.AddItem("14.31818");
        v.Show();
        v.cboFree->lineEdit()->setFocus();
        QTest::keyClicks(v.cboFree->lineEdit(), "25");
        QCOMPARE(v.window.cboFree.Text(), std::string("25"));
        QCOMPARE(v.window.Count("cboFree.Change"), 2);
        v.window.cboFree.SetText("20");
        QCOMPARE(v.cboFree->currentText(), QString("20"));
    }

    void modelChangesDoNotComeBackAsUserEvents() {
        View v;
        QSignalSpy activated(v.cboList, &QComboBox::activated);
        QSignalSpy checkClicked(v.chkOption, &QCheckBox::clicked);
        QSignalSpy radioClicked(v.optFirst, &QRadioButton::clicked);
        QSignalSpy scrolled(v.vsbScroll, &QScrollBar::valueChanged);
        v.window.cboList.AddItem("a");
        v.window.cboList.AddItem("b");
        v.window.cboList.SetListIndex(1);
        v.window.chkOption.SetValue(1);
        v.window.optFirst.SetValue(true);
        v.window.vsbScroll.SetValue(3);
        QCOMPARE(activated.count(), 0);
        QCOMPARE(checkClicked.count(), 0);
        QCOMPARE(radioClicked.count(), 0);
        QCOMPARE(scrolled.count(), 0);
        // Each model change fired its own event once.
        QCOMPARE(v.window.Count("cboList.Click"), 1);
        QCOMPARE(v.window.Count("chkOption.Click"), 1);
        QCOMPARE(v.window.Count("optFirst.Click"), 1);
        QCOMPARE(v.window.Count("vsbScroll.Change"), 1);
    }

    void checkBoxBothWaysWithGrey() {
        View v;
        v.window.chkOption.SetCaption("Show &Pinout");
        QCOMPARE(v.chkOption->text(), QString("Show &Pinout"));
        v.Show();
        QTest::mouseClick(v.chkOption, Qt::LeftButton);
        QCOMPARE(v.window.chkOption.Value(), 1);
        QCOMPARE(v.window.Count("chkOption.Click"), 1);
        QTest::mouseClick(v.chkOption, Qt::LeftButton);
        QCOMPARE(v.window.chkOption.Value(), 0);
        v.window.chkOption.SetValue(2);
        QCOMPARE(v.chkOption->checkState(), Qt::PartiallyChecked);
        QTest::mouseClick(v.chkOption, Qt::LeftButton);
        QCOMPARE(v.window.chkOption.Value(), 1);
        QCOMPARE(v.chkOption->checkState(), Qt::Checked);
    }

    void optionClickSetsItAndClearsTheOthersOfItsGroup() {
        View v;
        v.window.optFirst.SetCaption("QX6105A");
        v.window.optSecond.SetCaption("QX7311");
        v.window.optFirst.SetValue(true);
        QVERIFY(v.optFirst->isChecked());
        v.Show();
        QTest::mouseClick(v.optSecond, Qt::LeftButton, {}, QPoint(6, v.optSecond->height() / 2));
        QVERIFY(v.window.optSecond.Value());
        QVERIFY(!v.window.optFirst.Value());
        QVERIFY(v.optSecond->isChecked());
        QVERIFY(!v.optFirst->isChecked());
        // A click on the option that is already set changes nothing and stays set.
        v.window.events.clear();
        QTest::mouseClick(v.optSecond, Qt::LeftButton, {}, QPoint(6, v.optSecond->height() / 2));
        QVERIFY(v.optSecond->isChecked());
        QCOMPARE(v.window.Count("optSecond.Click"), 0);
    }

    void optionDoubleClickRaisesDblClick() {
        View v;
        v.window.optFirst.SetCaption("QX6105A");
        v.Show();
        QTest::mouseDClick(v.optFirst, Qt::LeftButton);
        QCOMPARE(v.window.Count("optFirst.DblClick"), 1);
    }

    void buttonClickRaisesClickAndCaptionKeepsItsAccelerator() {
        View v;
        v.window.cmdCalculate.SetCaption("&Calculate");
        QCOMPARE(v.cmdCalculate->text(), QString("&Calculate"));
        v.Show();
        QTest::mouseClick(v.cmdCalculate, Qt::LeftButton);
        QCOMPARE(v.window.Count("cmdCalculate.Click"), 1);
    }

    void pendingCalculateIsYellowAndDoneIsGrey() {
        View v;
        v.window.cmdCalculate.SetBackColor(65535);
        QCOMPARE(v.cmdCalculate->palette().color(QPalette::Button), QColor(255, 255, 0));
        v.window.cmdCalculate.SetBackColor(12632256);
        QCOMPARE(v.cmdCalculate->palette().color(QPalette::Button), QColor(192, 192, 192));
    }

    void outOfLimitTextIsRedAndSystemColourGoesBackToThePalette() {
        View v;
        v.window.txtValue.SetForeColor(255);
        QCOMPARE(v.txtValue->palette().color(QPalette::Text), QColor(255, 0, 0));
        v.window.txtValue.SetForeColor(colors::WindowText);
        QCOMPARE(v.txtValue->palette().color(QPalette::Text),
                 QApplication::palette(v.txtValue).color(QPalette::Text));
    }

    void labelShowsCaptionWithoutAcceleratorAndFillsItsOwnColour() {
        View v;
        v.window.lblInfo.SetCaption("Save &As && more");
        QCOMPARE(v.lblInfo->text(), QString("Save As & more"));
        v.window.lblInfo.SetBackColor(65535);
        QVERIFY(v.lblInfo->autoFillBackground());
        QCOMPARE(v.lblInfo->palette().color(QPalette::Window), QColor(255, 255, 0));
        v.window.lblInfo.SetBackColor(colors::ButtonFace);
        QVERIFY(!v.lblInfo->autoFillBackground());
    }

    void labelClickRaisesClick() {
        View v;
        v.window.lblInfo.SetCaption("Info");
        v.Show();
        QTest::mouseClick(v.lblInfo, Qt::LeftButton);
        QCOMPARE(v.window.Count("lblInfo.Click"), 1);
    }

    void frameTitleIsItsCaption() {
        View v;
        v.window.fraGroup.SetCaption("&Device");
        QCOMPARE(v.fraGroup->title(), QString("Device"));
    }

    void scrollBarBothWays() {
        View v;
        v.window.vsbScroll.SetMin(0);
        v.window.vsbScroll.SetMax(10);
        v.window.vsbScroll.SetValue(4);
        QCOMPARE(v.vsbScroll->maximum(), 10);
        QCOMPARE(v.vsbScroll->value(), 4);
        QCOMPARE(v.window.Count("vsbScroll.Change"), 1);
        v.vsbScroll->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(v.window.vsbScroll.Value(), 5);
        QCOMPARE(v.window.Count("vsbScroll.Change"), 2);
    }

    void enabledAndVisibleFollowTheModel() {
        View v;
        v.Show();
        v.window.txtOther.SetEnabled(false);
        QVERIFY(!v.txtOther->isEnabled());
        v.window.txtOther.SetVisible(false);
        QVERIFY(!v.txtOther->isVisible());
        v.window.txtOther.SetVisible(true);
        v.window.txtOther.SetEnabled(true);
        QVERIFY(v.txtOther->isVisible());
        QVERIFY(v.txtOther->isEnabled());
    }

    void focusMovesRunLostFocusThenGotFocus() {
        View v;
        v.Show();
        v.txtValue->setFocus();
        QTRY_COMPARE(v.window.ActiveControl(), static_cast<Field*>(&v.window.txtValue));
        v.window.events.clear();
        v.txtOther->setFocus();
        QTRY_COMPARE(v.window.ActiveControl(), static_cast<Field*>(&v.window.txtOther));
        QCOMPARE(v.window.events.size(), size_t(2));
        QCOMPARE(v.window.events[0], std::string("txtValue.LostFocus"));
        QCOMPARE(v.window.events[1], std::string("txtOther.GotFocus"));
    }

    void validateThatKeepsTheFocusGivesItBack() {
        View v;
        v.window.txtValue.OnValidate = [](bool& cancel) { cancel = true; };
        v.Show();
        v.txtValue->setFocus();
        QTRY_COMPARE(v.window.ActiveControl(), static_cast<Field*>(&v.window.txtValue));
        v.txtOther->setFocus();
        QCOMPARE(v.window.ActiveControl(), static_cast<Field*>(&v.window.txtValue));
        QTRY_VERIFY(v.txtValue->hasFocus());
        QCOMPARE(v.window.Count("txtOther.GotFocus"), 0);
    }

    void modelFocusMovesTheWidgetFocus() {
        View v;
        v.Show();
        v.window.SetFocusTo(&v.window.txtOther);
        QVERIFY(v.txtOther->hasFocus());
    }

    void keyPressSetToZeroIsSwallowed() {
        View v;
        v.window.txtValue.OnKeyPress = [](int& key) {
            if (key == 'x')
                key = 0;
        };
        v.Show();
        v.txtValue->setFocus();
        QTest::keyClicks(v.txtValue, "1x2");
        QCOMPARE(v.txtValue->text(), QString("12"));
        QCOMPARE(v.window.txtValue.Text(), std::string("12"));
    }

    void keyPressChangedToAnotherKeyTypesThatKey() {
        View v;
        v.window.txtValue.OnKeyPress = [](int& key) {
            if (key >= 'a' && key <= 'z')
                key -= 32;
        };
        v.Show();
        v.txtValue->setFocus();
        QTest::keyClicks(v.txtValue, "ab");
        QCOMPARE(v.window.txtValue.Text(), std::string("AB"));
    }

    void doubleClickOnTextRaisesDblClick() {
        View v;
        v.Show();
        QTest::mouseDClick(v.txtValue, Qt::LeftButton);
        QCOMPARE(v.window.Count("txtValue.DblClick"), 1);
    }

    void pictureMouseGivesTwips() {
        View v;
        double downX = -1, downY = -1, upX = -1;
        int downButton = 0;
        v.window.picDrawing.OnMouseDown = [&](int button, int, double x, double y) {
            downButton = button;
            downX = x;
            downY = y;
        };
        v.window.picDrawing.OnMouseUp = [&](int, int, double x, double) { upX = x; };
        v.Show();
        QTest::mousePress(v.picDrawing, Qt::RightButton, {}, QPoint(10, 20));
        QTest::mouseRelease(v.picDrawing, Qt::RightButton, {}, QPoint(12, 20));
        QCOMPARE(downButton, 2);
        QCOMPARE(downX, 150.0);
        QCOMPARE(downY, 300.0);
        QCOMPARE(upX, 180.0);
    }

    void destroyedWidgetsStopListening() {
        View v;
        delete v.txtOther;
        v.window.txtOther.SetText("still fine");
        QCOMPARE(v.binder->WidgetOf(v.window.txtOther), nullptr);
    }
};

QObject* MakeBinderTest() {
    return new BinderTest;
}

}  // namespace pendulon::test

#include "BinderTest.moc"
