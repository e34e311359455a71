// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QRectF>

class QScreen;
class QWidget;

namespace quor::helper {

/// Observes where the status item's button is on the desktop: notifies of moves of the button, its window,
/// the window's screen and all screens, as long as it exists.
///
/// Several changes at once are reported by one signal, from the event loop. Main thread only.
class MenuAnchor final : public QObject {
    Q_OBJECT

public:
    /// The button must be in its window already. It may be deleted first, which ends the observation.
    explicit MenuAnchor(QWidget& button);

    /// Returns the frame of the button's area in the status bar, in the coordinates of `QScreen`.
    [[nodiscard]] static QRectF frameOf(const QWidget& button);

    /// Returns the screen of the button's window; null while the button is not visible.
    [[nodiscard]] static QScreen* screenOf(const QWidget& button);

Q_SIGNALS:
    void moved();
    /// The size or the resolution of the screen may have changed. Emitted before `moved`.
    void screensChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void observe(QScreen* screen);
    void screensWillNotify();
    void willNotify();
    void notify();

    QPointer<QWidget> button_;
    QList<QMetaObject::Connection> screenChanges_;
    bool isNotifyPending_ = false;
    bool haveScreensChanged_ = false; ///< since the last `notify`
};

} // namespace quor::helper
