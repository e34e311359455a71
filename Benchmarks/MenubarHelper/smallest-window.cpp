// SPDX-License-Identifier: MIT
//
// The smallest program of its kind, one window without a frame: the floor for the helper's memory and
// start.
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
