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
QObject* MakePrintPreviewViewTest();
QObject* MakePinoutDrawingTest();

}  // namespace pendulon::test
