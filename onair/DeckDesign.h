#pragma once
#include <QColor>
#include <QtGlobal>

// The deck as drawn: the panel in twips (every place is in this frame and scales with the
// panel), its colours, and the levels it shows.
namespace DeckDesign {
constexpr double PanelWidth = 2835;
constexpr double PanelHeight = 1620;
constexpr double StatusTop = 75;
constexpr double TitleTop = 540;
constexpr double LineHeight = 390;
constexpr double MeterTop = 990;
constexpr double MeterHeight = 90;
constexpr double SlotTop = 1140;
constexpr double SlotHeight = 420;

inline const QColor GreenBack(0, 64, 0);
inline const QColor GreenFore(192, 255, 192);
inline const QColor RedBack(64, 0, 0);
inline const QColor RedFore(255, 192, 192);
inline const QColor TitleLit(255, 255, 192);
inline const QColor TitleDim(192, 192, 128);
inline const QColor StatusDim(128, 192, 128);
inline const QColor TitleBack(10, 12, 18);
inline const QColor VolumeBack(10, 12, 16);
inline const QColor VolumeFore(255, 190, 80);

// The volume in dB that means silence, and the meter's reading of no signal.
constexpr qint16 Silence = -110;
constexpr float NoSignal = -110;
}
