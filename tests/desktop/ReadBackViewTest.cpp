#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "desktop/PrintPreviewView.hpp"
#include "desktop/ReadBackView.hpp"
#include "shell/frmReadBack.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {

namespace {

QString Golden(const char* name) {
    return QString(PENDULON_SOURCE_DIR) + "/tests/data/entry/" + name;
}

struct ReadBackFixture : DocumentFixture {
    frmReadBack* ReadBack() const { return dynamic_cast<frmReadBack*>(app->Preview()); }
    ReadBackView* View() const { return ReadBack() ? ViewOf<ReadBackView>(*ReadBack()) : nullptr; }
    // A file dropped on the main window, as from a file manager.
    void Drop(const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &drop);
    }
};

}  // namespace

class ReadBackViewTest : public QObject {
    Q_OBJECT
  private slots:
    void fileOpenOfAFuseMapShowsTheReadBackViewInFrontOfTheDocument() {
        ReadBackFixture f;
        f.NewDocument("QX7311");
        f.platform.QueueFileAnswer(Golden("QX7311_5V.jed").toStdString());
        f.app->Main().mnuOpen.RaiseClick();
        ReadBackView* view = f.View();
        QVERIFY(view != nullptr);
        QVERIFY(f.app->Document() != nullptr);
        QMdiSubWindow* sub = f.window->SubWindowOf(*f.ReadBack());
        QCOMPARE(sub->windowTitle(), QString("Fuse Map Read-Back - QX7311_5V.jed"));
        QCOMPARE(view->findChild<QLabel*>("lblFile")->text(), QString("QX7311_5V.jed"));
        auto* devices = view->findChild<QComboBox*>("cboDevice");
        QCOMPARE(devices->count(), 3);
        QCOMPARE(devices->currentText(), QString("QX7311"));
        auto* reference = view->findChild<QComboBox*>("cboFRef");
        QVERIFY(reference->isEditable());
        QCOMPARE(reference->currentText(), QString("14.31818 MHz"));
        QPlainTextEdit* text = view->Preview()->Printout();
        QVERIFY(text->isReadOnly());
        QVERIFY(
            text->toPlainText().contains("Family checksum:  372 (stored in the fuses: the same)"));
        QVERIFY(text->toPlainText().contains(
            "  CLKA                      SPLL        2        24.00401"));
        for (const char* name :
             {"cmdOpenDocument", "cmdPrint", "cmdSave", "cmdClose", "cmdExportPDF"})
            QVERIFY2(view->findChild<QPushButton*>(name) != nullptr, name);
        QCOMPARE(view->findChild<QPushButton*>("cmdOpenDocument")->text(),
                 QString("Open as &Document..."));
        KeepPicture(view, "frmReadBack");
    }

    void choosingADeviceAndAReferenceRedrawsTheReadBack() {
        ReadBackFixture f;
        QVERIFY(f.ShowAndActivate());
        f.platform.QueueFileAnswer(Golden("QX3350_SC.jed").toStdString());
        f.app->Main().mnuOpen.RaiseClick();
        ReadBackView* view = f.View();
        QVERIFY(view != nullptr);
        auto* devices = view->findChild<QComboBox*>("cboDevice");
        devices->setCurrentIndex(1);
        emit devices->activated(1);
        QCOMPARE(f.ReadBack()->Device(), std::string("QX3350I"));
        QPlainTextEdit* text = view->Preview()->Printout();
        QVERIFY(text->toPlainText().contains("  Device:           QX3350I"));
        // A reference typed by the user takes effect when the field is left.
        auto* reference = view->findChild<QComboBox*>("cboFRef");
        reference->setFocus();
        reference->lineEdit()->selectAll();
        QTest::keyClicks(reference->lineEdit(), "20");
        view->findChild<QComboBox*>("cboDevice")->setFocus();
        QTRY_COMPARE(f.ReadBack()->Reference(), 20.0);
        QTRY_VERIFY(text->toPlainText().contains(
            "  CLKOUT                    PLL         2        83.80952"));
    }

    void aFuseMapDroppedOnTheWindowOpensItsReadBack() {
        ReadBackFixture f;
        f.Drop(Golden("QX4860_8.jed"));
        QVERIFY(f.View() != nullptr);
        QCOMPARE(f.ReadBack()->Device(), std::string("QX4860"));
        QVERIFY(f.platform.Messages().empty());
    }

    void openAsDocumentOpensTheDevicesWindowInPlaceOfTheReadBack() {
        ReadBackFixture f;
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        f.platform.QueueFileAnswer(Golden("QX6105A_FS.jed").toStdString());
        f.app->Main().mnuOpen.RaiseClick();
        ReadBackView* view = f.View();
        QVERIFY(view != nullptr);
        const std::string entry = folder.filePath("chip.ent").toStdString();
        f.platform.QueueFileAnswer(entry);
        f.platform.QueueModal("frmSummary",
                              [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
        QTest::mouseClick(view->findChild<QPushButton*>("cmdOpenDocument"), Qt::LeftButton);
        QTRY_VERIFY(f.app->Preview() == nullptr);
        QVERIFY(f.app->Document() != nullptr);
        QCOMPARE(f.app->Document()->Device(), std::string("QX6105A"));
        QVERIFY(f.window->SubWindowOf(*f.app->Document()) != nullptr);
        QVERIFY(QFile::exists(QString::fromStdString(entry)));
    }

    void aDamagedFuseMapOpensNothing() {
        ReadBackFixture f;
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        QFile golden(Golden("QX3350_SC.jed"));
        QVERIFY(golden.open(QIODevice::ReadOnly));
        QByteArray bytes = golden.readAll();
        bytes.replace("C01DE*", "C01DF*");
        QFile damaged(folder.filePath("damaged.jed"));
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(bytes);
        damaged.close();
        f.Drop(damaged.fileName());
        QVERIFY(f.app->Preview() == nullptr);
        QCOMPARE(f.window->MdiArea()->subWindowList().size(), 0);
        QCOMPARE(int(f.platform.Messages().size()), 1);
        QVERIFY(QString::fromStdString(f.platform.Messages().back().Text)
                    .contains("cannot be read as a fuse map: its fuse checksum C01DF"));
    }
};

QObject* MakeReadBackViewTest() {
    return new ReadBackViewTest;
}

}  // namespace pendulon::test

#include "ReadBackViewTest.moc"
