#pragma once

class QComboBox;
class QListWidget;

// The fixed choices of the recording format, added in their order at the end of a combo box
// or a list. Modes carry their channel count as item data (Qt::UserRole).
namespace FormatLists {
void FillFrequencies(QComboBox* list);
void FillFrequencies(QListWidget* list);
void FillModes(QComboBox* list);
void FillModes(QListWidget* list);
void FillFileTypes(QComboBox* list);
void FillFileTypes(QListWidget* list);
void FillCompressions(QComboBox* list);
void FillCompressions(QListWidget* list);
void FillBitRates(QComboBox* list);
void FillBitRates(QListWidget* list);
}
