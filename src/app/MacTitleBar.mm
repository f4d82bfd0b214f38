#include "app/MacTitleBar.h"

#import <AppKit/AppKit.h>
#include <QWidget>

void hideSystemTitleBar(QWidget* window)
{
    NSView* view = reinterpret_cast<NSView*>(window->winId());
    NSWindow* nativeWindow = view.window;
    if (!nativeWindow)
        return;
    nativeWindow.titleVisibility = NSWindowTitleHidden;
    nativeWindow.titlebarAppearsTransparent = YES;
    nativeWindow.styleMask |= NSWindowStyleMaskFullSizeContentView;
}
