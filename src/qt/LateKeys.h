// LateKeys.h -- the order of the keys. The window system may hand over many at once; those that come behind the answer of a
// box, ahead of the end of its loop, are meant for what follows it, and so are all that come behind these. The same for
// keys behind the stop of a simulation, ahead of the end of its walk.
#pragma once

#include <QEvent>

/// True when `event` is a key that has to wait; it is kept then, and comes again in its turn.
bool KeepLateKey(const QEvent* event);

/// A panel has got its answer: keys wait from here on.
void HoldKeys();

/// Its loop has ended: what waited goes to what has the focus, once the routine that asked has gone on.
void ReleaseKeys();

/// Asks the event loop to go on with the keys that wait, when there are any.
void PostLateKeys();
