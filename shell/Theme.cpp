#include "shell/Theme.h"
#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace Theme {
namespace {
const char* const StyleSheet = R"(
QWidget { color: rgb(224, 230, 240); font-size: 10pt; }
QFrame#IFUserInfo, QFrame#IFStationID, QFrame#FraMenu {
    background: rgba(30, 36, 46, 230); border: 1px solid rgb(58, 68, 84); border-radius: 8px; }
QFrame#BackPannel { background: transparent; }
QLabel#LblID { font-size: 14pt; font-weight: bold; color: rgb(255, 190, 80); }
QLabel#Label1, QLabel[role="caption"] { color: rgb(150, 165, 190); }
QLabel[role="title"] { font-size: 16pt; font-weight: bold; color: rgb(255, 190, 80); }
QLabel[role="clock"] { font-family: "DejaVu Sans Mono"; font-size: 13pt; color: rgb(120, 230, 140); }
QLabel#LblVersion { color: rgb(120, 135, 160); font-size: 9pt; }
QLabel#LblCaption { font-weight: bold; }
QPushButton, QToolButton {
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 rgb(70, 80, 98), stop:1 rgb(44, 51, 64));
    border: 1px solid rgb(20, 24, 30); border-radius: 6px; padding: 6px 14px; font-weight: bold; }
QPushButton:hover, QToolButton:hover { border-color: rgb(255, 170, 40); }
QPushButton:pressed, QToolButton:pressed { background: rgb(255, 170, 40); color: rgb(20, 20, 20); }
QPushButton:disabled, QToolButton:disabled { background: rgb(36, 40, 48); color: rgb(90, 98, 112); border-color: rgb(30, 34, 40); }
QToolButton { padding: 4px; font-size: 9pt; }
QToolButton[popupMode="1"] { padding-right: 16px; }
QToolButton::menu-button { background: transparent; border: none; border-left: 1px solid rgb(20, 24, 30); width: 14px; }
QPushButton[objectName^="CmdMenu"] { font-size: 11pt; padding: 2px; }
QLineEdit { background: rgb(16, 19, 24); border: 1px solid rgb(70, 80, 98); border-radius: 4px; padding: 4px; color: rgb(255, 255, 255); }
QLineEdit:focus { border-color: rgb(255, 170, 40); }
QGroupBox { border: 1px solid rgb(58, 68, 84); border-radius: 6px; margin-top: 12px; padding-top: 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; color: rgb(150, 165, 190); }
)";
}

void Apply(QApplication& app)
{
    app.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(24, 28, 35));
    palette.setColor(QPalette::WindowText, QColor(224, 230, 240));
    palette.setColor(QPalette::Base, QColor(16, 19, 24));
    palette.setColor(QPalette::Text, QColor(240, 244, 250));
    palette.setColor(QPalette::Button, QColor(52, 60, 74));
    palette.setColor(QPalette::ButtonText, QColor(224, 230, 240));
    palette.setColor(QPalette::Highlight, QColor(255, 170, 40));
    palette.setColor(QPalette::HighlightedText, QColor(20, 20, 20));
    app.setPalette(palette);
    app.setStyleSheet(QString::fromLatin1(StyleSheet));
}
}
