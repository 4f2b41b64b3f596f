#pragma once
#include <QObject>

namespace pendulon::test {

// The test classes of the desktop front end, one maker per source file.
QObject* MakeBinderTest();
QObject* MakePictureViewTest();
QObject* MakeQtPlatformTest();
QObject* MakeMenuTest();
QObject* MakeMainWindowTest();
QObject* MakeShellViewsTest();
QObject* MakeConfiguratorViewsTest();
QObject* MakeQX7311ViewTest();
QObject* MakeQX5140ViewTest();
QObject* MakePrintPreviewViewTest();
QObject* MakeWizardViewTest();
QObject* MakeQX3350ViewTest();
QObject* MakePinoutDrawingTest();
QObject* MakePlannerViewTest();
QObject* MakeKeyboardTest();
QObject* MakeAccessibleNamesTest();
QObject* MakeDebugWindowTest();
QObject* MakeReadBackViewTest();
// Run on its own, once for each screen size (see CMakeLists.txt).
QObject* MakeDocumentFitTest();

}  // namespace pendulon::test
