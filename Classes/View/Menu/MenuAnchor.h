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

/// Where the status item's button stands on the desktop, and word of every move of it: of the button, of
/// its window, of the window's screen or of all screens.
///
/// Several changes in a row are told once, from the event loop. Watches for as long as it lives. Main
/// thread only.
class MenuAnchor final : public QObject {
    Q_OBJECT

public:
    explicit MenuAnchor(QWidget& button);

    /// The button's place in the status bar, in the coordinates of `QScreen`.
    [[nodiscard]] static QRectF frameOf(const QWidget& button);

    /// The screen of the button's window; null while the button is nowhere to be seen.
    [[nodiscard]] static QScreen* screenOf(const QWidget& button);

Q_SIGNALS:
    void moved();
    void screensChanged(); ///< Told before `moved`, where the room on a screen may be another than before.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QScreen* screen);
    void noticeScreens();
    void notice();
    void tell();

    QPointer<QWidget> button_;
    QList<QMetaObject::Connection> screenChanges_;
    bool noticed_ = false;
    bool screensNoticed_ = false;
};

} // namespace quor::helper
