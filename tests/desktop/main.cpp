#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>

#include "DesktopTests.hpp"

// Runs every test class of the desktop front end in one program.
int main(int argc, char** argv) {
    // Qt makes a runtime folder in /tmp for itself when the session names none; the tests give
    // it one of their own that goes when they end.
    std::optional<QTemporaryDir> runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        runtime.emplace(QDir::tempPath() + "/test_desktop-runtime-XXXXXX");
        if (runtime->isValid())
            qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime->path()));
    }
    QApplication app(argc, argv);
    QApplication::setStyle("Fusion");
    int failures = 0;
    for (auto make : {pendulon::test::MakeBinderTest, pendulon::test::MakePictureViewTest,
                      pendulon::test::MakeQtPlatformTest, pendulon::test::MakeMenuTest,
                      pendulon::test::MakeMainWindowTest, pendulon::test::MakeShellViewsTest,
                      pendulon::test::MakeConfiguratorViewsTest, pendulon::test::MakeQX7311ViewTest,
                      pendulon::test::MakeQX5140ViewTest, pendulon::test::MakePrintPreviewViewTest,
                      pendulon::test::MakeWizardViewTest, pendulon::test::MakeQX3350ViewTest,
                      pendulon::test::MakePinoutDrawingTest, pendulon::test::MakePlannerViewTest,
                      pendulon::test::MakeKeyboardTest, pendulon::test::MakeAccessibleNamesTest,
                      pendulon::test::MakeDebugWindowTest, pendulon::test::MakeReadBackViewTest,
                      pendulon::test::MakeDocumentFitTest}) {
        std::unique_ptr<QObject> test(make());
        // PENDULON_TEST_CLASS=QtPlatformTest runs one class, so that its functions can be named.
        const QByteArray only = qgetenv("PENDULON_TEST_CLASS");
        const QByteArray name(test->metaObject()->className());
        if (!only.isEmpty() && !name.endsWith(only))
            continue;
        // The screen-size test runs on screens of its own sizes, only when asked for.
        if (only.isEmpty() && name.endsWith("DocumentFitTest"))
            continue;
        failures += QTest::qExec(test.get(), argc, argv);
    }
    return failures == 0 ? 0 : 1;
}
