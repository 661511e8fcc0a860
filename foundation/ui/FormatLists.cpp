#include "foundation/ui/FormatLists.h"
#include <QComboBox>
#include <QListWidget>
#include <QVariant>
#include <utility>
#include <vector>

namespace FormatLists {
namespace {
using Items = std::vector<std::pair<const char*, QVariant>>;

Items Texts(std::initializer_list<const char*> texts)
{
    Items items;
    for (const char* text : texts)
        items.emplace_back(text, QVariant());
    return items;
}

const Items& Frequencies()
{
    static const Items items = Texts({"8000", "11025", "16000", "22050", "24000", "32000", "44100", "48000"});
    return items;
}

const Items& Modes()
{
    static const Items items{{"Mono", 1}, {"Stereo", 2}, {"Extra Stereo", 2}};
    return items;
}

const Items& FileTypes()
{
    static const Items items = Texts({".Raw (Tots)", ".Wav (Pc)", ".Aiff (Mac)"});
    return items;
}

const Items& Compressions()
{
    static const Items items = Texts({"MPEG Layer 1", "MPEG Layer 2", "Linear 8 bit", "Linear 16 bit Intel", "Linear 16 bit Motorola"});
    return items;
}

const Items& BitRates()
{
    static const Items items = Texts({"8", "16", "24", "32", "48", "56", "64", "80", "96", "112", "128", "144",
                                      "160", "176", "192", "224", "256", "288", "320", "352", "384", "416", "448"});
    return items;
}

void Fill(QComboBox* list, const Items& items)
{
    for (const auto& [text, data] : items)
        list->addItem(QString::fromLatin1(text), data);
}

void Fill(QListWidget* list, const Items& items)
{
    for (const auto& [text, data] : items) {
        auto* item = new QListWidgetItem(QString::fromLatin1(text), list);
        item->setData(Qt::UserRole, data);
    }
}
}

void FillFrequencies(QComboBox* list) { Fill(list, Frequencies()); }
void FillFrequencies(QListWidget* list) { Fill(list, Frequencies()); }
void FillModes(QComboBox* list) { Fill(list, Modes()); }
void FillModes(QListWidget* list) { Fill(list, Modes()); }
void FillFileTypes(QComboBox* list) { Fill(list, FileTypes()); }
void FillFileTypes(QListWidget* list) { Fill(list, FileTypes()); }
void FillCompressions(QComboBox* list) { Fill(list, Compressions()); }
void FillCompressions(QListWidget* list) { Fill(list, Compressions()); }
void FillBitRates(QComboBox* list) { Fill(list, BitRates()); }
void FillBitRates(QListWidget* list) { Fill(list, BitRates()); }
}
