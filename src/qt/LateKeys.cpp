#include "qt/LateKeys.h"

#include "qt/StationWindow.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace
{
/// An answered panel's loop hasn't ended, or a simulation that was stopped hasn't: what is typed behind the stop is meant
/// for what follows it, and the walk on the stack could bear no second one.
bool KeysWait()
{
    const bool stopped = AppState.SimWalking != FlagOff && AppState.SimStop != FlagOff;
    return Window.KeysHeld || (stopped && !Window.Modal);
}

/// One key for each turn of the event loop: it may open a box, whose own loop then goes on with the next. A routine that
/// lets the window system catch up isn't done with the key before.
void SendNextKey()
{
    if (KeysWait() || Window.Yielding || Window.LateKeys.empty()) {
        return;
    }
    const std::shared_ptr<QKeyEvent> key = Window.LateKeys.front();
    Window.LateKeys.pop_front();
    PostLateKeys();
    Window.SentKey = key.get();
    QWidget* focused = Window.Main->focusWidget();
    QCoreApplication::sendEvent(focused != nullptr ? focused : Window.Main, key.get());
    Window.SentKey = nullptr;
}
} // namespace

bool KeepLateKey(const QEvent* event)
{
    const bool waits = KeysWait() || !Window.LateKeys.empty();
    if (event->type() != QEvent::KeyPress || event == Window.SentKey || !waits) {
        return false;
    }
    Window.LateKeys.emplace_back(static_cast<const QKeyEvent*>(event)->clone());
    return true;
}

void HoldKeys()
{
    Window.KeysHeld = true;
}

void ReleaseKeys()
{
    Window.KeysHeld = false;
    PostLateKeys();
}

void PostLateKeys()
{
    if (!Window.LateKeys.empty()) {
        QMetaObject::invokeMethod(Window.Main, SendNextKey, Qt::QueuedConnection);
    }
}
