#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "configurators/frmQX3350.hpp"
#include "desktop/Binder.hpp"
#include "desktop/FloatingPanel.hpp"
#include "desktop/QX3350View.hpp"

namespace pendulon::test {

namespace {

bool ChooseEntry(QComboBox* combo, const QString& text) {
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i) == text) {
            combo->setCurrentIndex(i);
            emit combo->activated(i);
            return true;
        }
    }
    return false;
}

QColor TextColor(QWidget* widget) {
    return widget->palette().color(QPalette::WindowText);
}

}  // namespace

class QX3350ViewTest : public QObject {
    Q_OBJECT
  private slots:
    void everyFieldOfTheFormHasItsWidgetByName() {
        DocumentFixture f;
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        QVERIFY(view != nullptr);
        // The file path is hidden: the caption shows the file.
        const QStringList missing = MissingWidgets(
            form, *view, [](const std::string& name) { return name == "txtFilePath"; });
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(", ")));
        const std::pair<const char*, const char*> groups[] = {
            {"fraClockSource", "Clock Source"},
            {"fraReference", "Reference"},
            {"fraVoltage", "Voltage"},
            {"fraTTLCMOS", "TTL/CMOS Output"},
            {"fraPackage", "Package"},
            {"fraPLLFrequency", "PLL Frequency"},
            {"fraPLLData", "PLL Data"},
            {"fraOutputs", "Outputs"},
            {"fraOptions", "Options"},
            {"fraPin4", "Pin 4"},
            {"fraSynchronous", "Synchronous Select"},
            {"fraLimits", "User Defined Limits"},
            {"fraPinout", "Pinout"}};
        for (const auto& [name, title] : groups)
            QCOMPARE(view->findChild<QGroupBox*>(name)->title(), QString(title));
        QCOMPARE(view->findChild<QLabel*>("lblNoPowerCalculation")->text(),
                 QString("Power Calculation Not Available"));
        // Its place is wide enough for the whole note, not only for the power panel.
        QLabel* note = view->findChild<QLabel*>("lblNoPowerCalculation");
        QVERIFY(note->parentWidget()->width() >= note->sizeHint().width());
        QCOMPARE(view->findChild<QLabel*>("lblClkOutDivide")->text(), QString("CLK-Out Divide"));
        // The reference limits follow the clock source and are not shown.
        QVERIFY(!view->findChild<QLineEdit*>("txtFRefMin")->isVisible());
        QVERIFY(!view->findChild<QLineEdit*>("txtFRefMax")->isVisible());
    }

    void theDocumentFitsA1280By800Screen() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto* view = f.ViewOf<QX3350View>(f.Form<frmQX3350>());
        QTRY_VERIFY(view->isVisible());
        // Room is left for the main window's frame, menu and status bars.
        QVERIFY2(view->sizeHint().width() <= 1240, qPrintable(QString::number(view->width())));
        QVERIFY2(view->sizeHint().height() <= 660, qPrintable(QString::number(view->height())));
        QVERIFY(view->width() >= view->minimumSizeHint().width());
        QVERIFY(view->height() >= view->minimumSizeHint().height());
        KeepPicture(view, "frmQX3350-new");
    }

    void thePowerNoteStandsOnItsOwnPlaceAndCoversNoField() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        QTRY_VERIFY(view->isVisible());
        FloatingPanel* panel = view->PowerPanel();
        QTRY_VERIFY(panel->isVisible());
        QCOMPARE(panel->pos(), view->PowerPlace()->mapTo(view, QPoint(0, 0)));
        for (Field* field : form.Fields().Fields()) {
            QWidget* widget = view->findChild<QWidget*>(QString::fromStdString(field->Name()));
            if (widget == nullptr || widget == panel || !widget->isVisible() ||
                field->Name() == "lblNoPowerCalculation" || field->Name() == "picPower")
                continue;
            const QRect area(widget->mapTo(view, QPoint(0, 0)), widget->size());
            // Group frames hold fields; only the fields themselves count.
            if (qobject_cast<QGroupBox*>(widget) != nullptr)
                continue;
            QVERIFY2(!area.intersects(panel->geometry()), field->Name().c_str());
        }
    }

    void tabReadsFromTheReferenceOnToTheFrequencyAndItsSolution() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        QWidget* active = view->GetBinder().WidgetOf(*form.ActiveControl());
        QTRY_VERIFY(active->hasFocus());
        QCOMPARE(active->objectName(), QString("cboFRef"));
        // The key goes where the keyboard is: the list's edit line. The voltage stands beside
        // the reference in the top row.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTRY_VERIFY(view->findChild<QRadioButton*>("opt5V")->hasFocus());
        auto* edit = view->findChild<QLineEdit*>("txtPLL");
        edit->setFocus(Qt::OtherFocusReason);
        QTest::keyClick(edit, Qt::Key_Tab);
        QTRY_VERIFY(view->findChild<QComboBox*>("cboPLLData")->hasFocus());
    }

    void threeVoltsForceCMOSOnTheScreen() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        auto* ttl = view->findChild<QRadioButton*>("optTTL");
        auto* cmos = view->findChild<QRadioButton*>("optCMOS");
        QVERIFY(ttl->isChecked());
        QTest::mouseClick(view->findChild<QRadioButton*>("opt3V"), Qt::LeftButton);
        QVERIFY(form.opt3V.Value());
        QVERIFY(cmos->isChecked());
        QVERIFY(!ttl->isEnabled());
        QCOMPARE(view->findChild<QLineEdit*>("txtPLLMax(0)")->text(), QString("180.0"));
        QTest::mouseClick(view->findChild<QRadioButton*>("opt5V"), Qt::LeftButton);
        QVERIFY(ttl->isEnabled());
        QVERIFY(ttl->isChecked());
    }

    void aRefDivisorTurnsTheFrequencyOffAndPLLBringsItBack() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "150");
        auto* divisors = view->findChild<QComboBox*>("cboClockDivisors");
        divisors->setFocus();
        QTRY_VERIFY(divisors->hasFocus());
        QCOMPARE(edit->text(), QString("150.0"));
        QVERIFY(ChooseEntry(divisors, "Ref/4"));
        QCOMPARE(edit->text(), QString("Off"));
        QVERIFY(!edit->isEnabled());
        QVERIFY(ChooseEntry(divisors, "PLL/2"));
        QCOMPARE(edit->text(), QString("150.0"));
        QVERIFY(edit->isEnabled());
        QCOMPARE(view->findChild<QLabel*>("lblDesiredClock")->text(), QString(" 75.00000"));
    }

    void calculateFillsTheListsAndARedOutputShowsRed() {
        DocumentFixture f;
        QVERIFY(f.ShowAndActivate());
        f.NewDocument("QX3350");
        auto& form = f.Form<frmQX3350>();
        auto* view = f.ViewOf<QX3350View>(form);
        auto* edit = view->findChild<QLineEdit*>("txtPLL");
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, "120");
        auto* calculate = view->findChild<QPushButton*>("cmdCalculate");
        QCOMPARE(calculate->palette().color(QPalette::Button), QColor(255, 255, 0));
        QTest::mouseClick(calculate, Qt::LeftButton);
        auto* data = view->findChild<QComboBox*>("cboPLLData");
        auto* actual = view->findChild<QComboBox*>("cboActual");
        QVERIFY(data->count() > 0);
        QCOMPARE(data->currentText(), QString::fromStdString(form.cboPLLData.Text()));
        QVERIFY(actual->currentText().startsWith("119.99") ||
                actual->currentText().startsWith("120"));
        QCOMPARE(calculate->palette().color(QPalette::Button), QColor(192, 192, 192));
        QVERIFY(TextColor(view->findChild<QLabel*>("lblDesiredClock")) != QColor(255, 0, 0));
        KeepPicture(view, "frmQX3350-calculated");
        // 120 MHz is above what the output may run at 3.3 V.
        QTest::mouseClick(view->findChild<QRadioButton*>("opt3V"), Qt::LeftButton);
        QCOMPARE(TextColor(view->findChild<QLabel*>("lblDesiredClock")), QColor(255, 0, 0));
        // The red carries to the actual list, whose text is drawn in the button's colour.
        QCOMPARE(actual->palette().color(QPalette::ButtonText), QColor(255, 0, 0));
        KeepPicture(view, "frmQX3350-red-output");
    }
};

QObject* MakeQX3350ViewTest() {
    return new QX3350ViewTest;
}

}  // namespace pendulon::test

#include "QX3350ViewTest.moc"
