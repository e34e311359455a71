// SPDX-License-Identifier: MIT
//
// The smallest Qt Widgets program: one window without a frame. The floor for the helper's memory and start.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setGeometry(0, 0, 120, 22);
    window.show();
    return QApplication::exec();
}
