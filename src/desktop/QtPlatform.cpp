#include "desktop/QtPlatform.hpp"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QResizeEvent>
#include <QScreen>
#include <QSettings>
#include <QTemporaryFile>
#include <QVBoxLayout>
#include <cmath>

#include "platform/Window.hpp"

namespace pendulon {

namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

constexpr const char* kOrganisation = "Pendulon";

// The per-user store of an application. Falling back to the system-wide file would make the
// outside keys look like the user's own settings, so the fallback is off.
std::unique_ptr<QSettings> UserSettings(const std::string& app) {
    auto settings = std::make_unique<QSettings>(QSettings::UserScope, kOrganisation, Q(app));
    settings->setFallbacksEnabled(false);
    return settings;
}

// A dialog that shows a window model until the model hides itself. Closing it from its title
// bar or with Escape asks the model, which may stay open.
class ModalDialog : public QDialog {
  public:
    ModalDialog(Window& window, const ViewRegistry& views, QWidget* parent)
        : QDialog(parent), window_(window), views_(views) {}
    void reject() override { views_.RequestClose(window_); }

  protected:
    // A window that grows while it is shown (the device selection when it shows a second
    // pinout) stays on its screen.
    void resizeEvent(QResizeEvent* event) override {
        QDialog::resizeEvent(event);
        QScreen* where = screen();
        if (!isVisible() || where == nullptr)
            return;
        const QRect room = where->availableGeometry();
        const QRect frame = frameGeometry();
        if (room.contains(frame))
            return;
        const int x =
            std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width()));
        const int y =
            std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height()));
        move(x, y);
    }

  private:
    Window& window_;
    const ViewRegistry& views_;
};

}  // namespace

QtPlatform::QtPlatform(ViewRegistry& views) : views_(views) {
    // Every picture is measured in the fonts of this screen, also one drawn before its view.
    SetScreenTextMetrics(&Metrics());
}

QtPlatform::~QtPlatform() {
    if (&ScreenTextMetrics() == metrics_.get())
        SetScreenTextMetrics(nullptr);
}

QPrinter& QtPlatform::Printer() {
    if (!printer_)
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *printer_;
}

int QtPlatform::AnswerOfButton(int standardButton) {
    switch (standardButton) {
        case QMessageBox::Ok:
            return msgbox::OK;
        case QMessageBox::Cancel:
            return msgbox::Cancel;
        case QMessageBox::Abort:
            return msgbox::Abort;
        case QMessageBox::Retry:
            return msgbox::Retry;
        case QMessageBox::Ignore:
            return msgbox::Ignore;
        case QMessageBox::Yes:
            return msgbox::Yes;
        case QMessageBox::No:
            return msgbox::No;
        default:
            return msgbox::Cancel;
    }
}

int QtPlatform::MsgBox(const std::string& prompt, int style, const std::string& title) {
    QMessageBox box(dialogParent_);
    box.setWindowTitle(Q(title));
    box.setText(Q(prompt));
    switch (style & 0x70) {
        case msgbox::Critical:
            box.setIcon(QMessageBox::Critical);
            break;
        case msgbox::Question:
            box.setIcon(QMessageBox::Question);
            break;
        case msgbox::Exclamation:
            box.setIcon(QMessageBox::Warning);
            break;
        case msgbox::Information:
            box.setIcon(QMessageBox::Information);
            break;
        default:
            box.setIcon(QMessageBox::NoIcon);
            break;
    }
    QList<QMessageBox::StandardButton> buttons;
    switch (style & 0x7) {
        case msgbox::OKCancel:
            buttons = {QMessageBox::Ok, QMessageBox::Cancel};
            break;
        case msgbox::AbortRetryIgnore:
            buttons = {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
            break;
        case msgbox::YesNoCancel:
            buttons = {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
            break;
        case msgbox::YesNo:
            buttons = {QMessageBox::Yes, QMessageBox::No};
            break;
        case msgbox::RetryCancel:
            buttons = {QMessageBox::Retry, QMessageBox::Cancel};
            break;
        default:
            buttons = {QMessageBox::Ok};
            break;
    }
    for (auto button : buttons) box.addButton(button);
    int defaultIndex = 0;
    if (style & msgbox::DefaultButton3)
        defaultIndex = 2;
    else if (style & msgbox::DefaultButton2)
        defaultIndex = 1;
    if (defaultIndex >= buttons.size())
        defaultIndex = 0;
    box.setDefaultButton(buttons[defaultIndex]);
    // Escape answers Cancel where there is one; a lone OK is its own escape.
    if (buttons.contains(QMessageBox::Cancel))
        box.setEscapeButton(QMessageBox::Cancel);
    else if (buttons.size() == 1)
        box.setEscapeButton(buttons[0]);
    box.exec();
    ReturnFocus();
    QAbstractButton* clicked = box.clickedButton();
    if (clicked == nullptr)
        return msgbox::DefaultAnswer(style);
    return AnswerOfButton(box.standardButton(clicked));
}

QStringList QtPlatform::NameFilters(const std::string& filter) {
    const QStringList parts = Q(filter).split('|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        // The description's own pattern list goes; the pattern part is the one that counts.
        description.remove(QRegularExpression(R"(\s*\([^()]*\)\s*$)"));
        QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns) {
            pattern = pattern.trimmed();
            if (pattern == "*.*")
                pattern = "*";
        }
        result << description + " (" + patterns.join(' ') + ")";
    }
    return result;
}

bool QtPlatform::ShowFileDialog(CommonDialog& dialog, bool save) {
    QFileDialog files(dialogParent_, Q(dialog.DialogTitle));
    files.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (save)
        files.setFileMode(QFileDialog::AnyFile);
    else
        files.setFileMode((dialog.Flags & CommonDialog::FileMustExist) ? QFileDialog::ExistingFile
                                                                       : QFileDialog::AnyFile);
    const QStringList filters = NameFilters(dialog.Filter);
    if (!filters.isEmpty()) {
        files.setNameFilters(filters);
        const int index = std::clamp(dialog.FilterIndex, 1, int(filters.size())) - 1;
        files.selectNameFilter(filters[index]);
    }
    if (!dialog.DefaultExt.empty())
        files.setDefaultSuffix(Q(dialog.DefaultExt));
    files.setOption(QFileDialog::DontConfirmOverwrite,
                    !(dialog.Flags & CommonDialog::OverwritePrompt));
    files.setOption(QFileDialog::ReadOnly, false);
    // The folder the file names, else the one the program asks for, else the folder of the
    // last dialog, else home: never the folder the program happened to be started in.
    QString folder = Q(dialog.InitDir);
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        folder = lastFolder_;
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        folder = QDir::homePath();
    files.setDirectory(folder);
    if (!dialog.FileName.empty()) {
        const QFileInfo info(Q(dialog.FileName));
        if (info.isAbsolute())
            files.setDirectory(info.absolutePath());
        // A pattern is no name to offer.
        if (!info.fileName().contains('*'))
            files.selectFile(info.fileName());
    }
    if (files.exec() != QDialog::Accepted || files.selectedFiles().isEmpty())
        return false;
    dialog.FileName = QDir::toNativeSeparators(files.selectedFiles().first()).toStdString();
    lastFolder_ = QFileInfo(files.selectedFiles().first()).absolutePath();
    const qsizetype chosen = filters.indexOf(files.selectedNameFilter());
    if (chosen >= 0)
        dialog.FilterIndex = int(chosen) + 1;
    return true;
}

bool QtPlatform::ShowOpen(CommonDialog& dialog) {
    return ShowFileDialog(dialog, false);
}
bool QtPlatform::ShowSave(CommonDialog& dialog) {
    return ShowFileDialog(dialog, true);
}

bool QtPlatform::ShowPrinter(CommonDialog& dialog) {
    QPrintDialog print(&Printer(), dialogParent_);
    if (!dialog.DialogTitle.empty())
        print.setWindowTitle(Q(dialog.DialogTitle));
    return print.exec() == QDialog::Accepted;
}

void QtPlatform::ShowHelp(CommonDialog& dialog) {
    // The help file is shown as text in a simple viewer.
    QFile file(Q(dialog.HelpFile));
    if (!file.open(QIODevice::ReadOnly)) {
        QMessageBox::information(dialogParent_, QCoreApplication::applicationName(),
                                 QString("The help file %1 cannot be opened.")
                                     .arg(QDir::toNativeSeparators(Q(dialog.HelpFile))));
        return;
    }
    QDialog viewer(dialogParent_);
    viewer.setWindowTitle(QFileInfo(file).fileName());
    auto* layout = new QVBoxLayout(&viewer);
    auto* text = new QPlainTextEdit(&viewer);
    text->setReadOnly(true);
    text->setPlainText(QString::fromUtf8(file.readAll()));
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &viewer);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &viewer, &QDialog::reject);
    layout->addWidget(buttons);
    viewer.resize(640, 480);
    viewer.exec();
}

void QtPlatform::ShowModal(Window& window) {
    ModalDialog dialog(window, views_, dialogParent_);
    dialog.setWindowTitle(Q(window.Caption()));
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    window.SetVisible(true);
    QWidget* view = views_.Create(window, &dialog);
    layout->addWidget(view);
    const int observer = window.AddObserver([&dialog](Window& changed) {
        dialog.setWindowTitle(Q(changed.Caption()));
        if (!changed.Visible() && dialog.isVisible())
            dialog.done(QDialog::Accepted);
    });
    if (window.Visible())
        dialog.exec();
    window.RemoveObserver(observer);
    delete view;
    // The window is modal for as long as it is shown; leaving the dialog hides it.
    window.SetVisible(false);
    ReturnFocus();
}

void QtPlatform::ReturnFocus() {
    // Without a window manager nobody gives the keyboard back when a modal window closes: the
    // window it belongs to takes it back itself.
    if (dialogParent_ != nullptr && dialogParent_->isVisible())
        dialogParent_->activateWindow();
}

std::string QtPlatform::GetSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& defaultValue) {
    auto settings = UserSettings(app);
    return settings->value(Q(section) + "/" + Q(key), Q(defaultValue)).toString().toStdString();
}

void QtPlatform::SaveSetting(const std::string& app, const std::string& section,
                             const std::string& key, const std::string& value) {
    auto settings = UserSettings(app);
    settings->setValue(Q(section) + "/" + Q(key), Q(value));
    settings->sync();
}

void QtPlatform::DeleteSetting(const std::string& app) {
    auto settings = UserSettings(app);
    settings->clear();
    settings->sync();
}

bool QtPlatform::SettingsExist(const std::string& app) {
    return !UserSettings(app)->allKeys().isEmpty();
}

QString QtPlatform::SystemKeyName(const std::string& keyPath) {
    QString key = Q(keyPath);
    key.replace('\\', '/');
    while (key.endsWith('/')) key.chop(1);
    while (key.startsWith('/')) key.remove(0, 1);
    return key;
}

std::optional<std::string> QtPlatform::ReadSystemKey(const std::string& keyPath) {
    QSettings system(QSettings::SystemScope, kOrganisation, kOrganisation);
    const QVariant value = system.value(SystemKeyName(keyPath));
    if (!value.isValid())
        return std::nullopt;
    return value.toString().toStdString();
}

DateTime QtPlatform::Now() {
    const QDateTime now = QDateTime::currentDateTime();
    DateTime result;
    result.Year = now.date().year();
    result.Month = now.date().month();
    result.Day = now.date().day();
    result.Hour = now.time().hour();
    result.Minute = now.time().minute();
    result.Second = now.time().second();
    return result;
}

std::string QtPlatform::AppDirectory() {
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString();
}

std::string QtPlatform::TempDirectory() {
    // Qt's temporary location: TMPDIR, else the system's temporary folder.
    return QDir::toNativeSeparators(QDir::tempPath()).toStdString();
}

std::string QtPlatform::TempFileName(const std::string& folder, const std::string& prefix) {
    QTemporaryFile file(QDir(Q(folder)).filePath(Q(prefix) + "XXXXXX.tmp"));
    file.setAutoRemove(false);
    if (!file.open())
        return {};
    return QDir::toNativeSeparators(file.fileName()).toStdString();
}

bool QtPlatform::StartProgram(const std::string& program, const std::vector<std::string>& args) {
    QStringList arguments;
    for (const std::string& arg : args) arguments << Q(arg);
    return QProcess::startDetached(Q(program), arguments);
}

std::string QtPlatform::ClipboardText() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtPlatform::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(Q(text));
}

void QtPlatform::Beep() {
    QApplication::beep();
}

void QtPlatform::SetMousePointer(int pointer) {
    if (pointer == pointer_)
        return;
    if (pointer_ != kPointerDefault)
        QGuiApplication::restoreOverrideCursor();
    pointer_ = pointer;
    if (pointer_ == kPointerHourglass) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (pointer_ != kPointerDefault) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
}

namespace {
QScreen* PrimaryScreen() {
    return QGuiApplication::primaryScreen();
}
int TwipsPerPixel(double dpi) {
    if (dpi <= 0)
        return 15;
    return std::max(1, int(std::lround(1440.0 / dpi)));
}
}  // namespace

double QtPlatform::ScreenWidth() {
    QScreen* screen = PrimaryScreen();
    return screen == nullptr ? 1024.0 * 15 : screen->geometry().width() * TwipsPerPixelX();
}

double QtPlatform::ScreenHeight() {
    QScreen* screen = PrimaryScreen();
    return screen == nullptr ? 768.0 * 15 : screen->geometry().height() * TwipsPerPixelY();
}

PlatformServices::Area QtPlatform::ScreenWorkArea() {
    QScreen* screen = PrimaryScreen();
    if (screen == nullptr)
        return PlatformServices::ScreenWorkArea();
    const QRect room = screen->availableGeometry();
    const double x = TwipsPerPixelX(), y = TwipsPerPixelY();
    return Area{room.x() * x, room.y() * y, room.width() * x, room.height() * y};
}

int QtPlatform::TwipsPerPixelX() {
    QScreen* screen = PrimaryScreen();
    return screen == nullptr ? 15 : TwipsPerPixel(screen->logicalDotsPerInchX());
}

int QtPlatform::TwipsPerPixelY() {
    QScreen* screen = PrimaryScreen();
    return screen == nullptr ? 15 : TwipsPerPixel(screen->logicalDotsPerInchY());
}

const TextMetrics& QtPlatform::Metrics() {
    if (!metrics_)
        metrics_ = std::make_unique<QtTextMetrics>(TwipsPerPixelX(), TwipsPerPixelY());
    return *metrics_;
}

bool QtPlatform::FontExists(const std::string& name) {
    return QFontDatabase::hasFamily(Q(name));
}

}  // namespace pendulon
