#include "onair/CFastCartColors.h"
#include "foundation/Colors.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "kernelapi/CKernel.h"
#include "onair/PadDesign.h"
#include <QStringList>

namespace {
const char* const ComponentLetters = "RGB";

QString DefaultKey(char component, int index)
{
    return QStringLiteral("Default") + QLatin1Char(component) + QString::number(index);
}
}

CFastCartColors::CFastCartColors()
    : m_values(FactoryValues())
{
}

PadColorsText::Values CFastCartColors::FactoryValues()
{
    PadColorsText::Values values{};
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = ToValue(PadDesign::FactoryColors[i]);
    return values;
}

qint32 CFastCartColors::ToValue(const QColor& color)
{
    return qint32(color.red() | (color.green() << 8) | (color.blue() << 16));
}

QColor CFastCartColors::ToColor(qint32 value)
{
    const RgbComponents rgb = ColorToRGB(value);
    return QColor(rgb.red, rgb.green, rgb.blue);
}

QColor CFastCartColors::Color(int part) const
{
    return ToColor(Value(part));
}

QString CFastCartColors::SerializedColors() const
{
    return PadColorsText::Write(m_values);
}

void CFastCartColors::SetSerializedColors(const QString& text)
{
    if (text.size() != PadColorsText::Length)
        return;
    const PadColorsText::Reading reading = PadColorsText::Read(text);
    if (!reading.values) {
        LogError(Object, QStringLiteral("SerializedColors_Let"), reading.error);
        return;
    }
    SetAll(*reading.values);
}

void CFastCartColors::ReadStored(const QString& text, const QString& procedure)
{
    const PadColorsText::Reading reading = PadColorsText::Read(text);
    if (reading.values) {
        SetAll(*reading.values);
        return;
    }
    LogError(Object, procedure, reading.error + QStringLiteral("; the pad takes the default colours"));
    ReturnToDefaults();
}

void CFastCartColors::SetValue(int part, qint32 value)
{
    if (part < 0 || part >= PadColorsText::Count)
        return;
    const qint32 colour = value & 0xFFFFFF;
    if (m_values[size_t(part)] == colour)
        return;
    m_values[size_t(part)] = colour;
    Q_EMIT Changed();
}

void CFastCartColors::SetAll(const PadColorsText::Values& values)
{
    m_values = values;
    Q_EMIT Changed();
}

void CFastCartColors::SaveAsDefaults()
{
    if (!Globals::Kernel())
        return;
    Guarded(Object, QStringLiteral("SaveAsDefaults"), [this] {
        for (int i = 0; i < PadColorsText::Count; ++i)
            SaveSingleColor(i, m_values[size_t(i)]);
        Q_EMIT Changed();
    });
}

void CFastCartColors::SaveSingleColor(int index, qint32 value) const
{
    const RgbComponents rgb = ColorToRGB(value);
    const auto kernel = Globals::Kernel();
    kernel->SetConfig(DefaultKey('R', index), rgb.red);
    kernel->SetConfig(DefaultKey('G', index), rgb.green);
    kernel->SetConfig(DefaultKey('B', index), rgb.blue);
}

void CFastCartColors::ReturnToDefaults()
{
    if (!Globals::Kernel())
        return;
    Guarded(Object, QStringLiteral("ReturnToDefaults"), [this] {
        PadColorsText::Values values{};
        for (int i = 0; i < PadColorsText::Count; ++i)
            values[size_t(i)] = ReadDefault(i);
        SetAll(values);
    });
}

// A colour whose three keys are all absent is the factory colour; a key that is there but is
// no number from 0 to 255 gives the factory colour too, with an ERROR line.
qint32 CFastCartColors::ReadDefault(int index) const
{
    const auto kernel = Globals::Kernel();
    const qint32 factory = FactoryValues()[size_t(index)];
    QStringList texts;
    for (const char* c = ComponentLetters; *c; ++c)
        texts << kernel->Config(DefaultKey(*c, index)).toString().trimmed();
    if (texts.join(QString()).isEmpty())
        return factory;
    qint32 value = 0;
    for (int c = 0; c < 3; ++c) {
        bool ok = false;
        const int component = texts[c].toInt(&ok);
        if (!ok || component < 0 || component > 255) {
            LogError(Object, QStringLiteral("ReturnToDefaults"),
                     QStringLiteral("%1 = '%2' is no value from 0 to 255; colour %3 takes its factory value")
                         .arg(DefaultKey(ComponentLetters[c], index), texts[c])
                         .arg(index));
            return factory;
        }
        value |= component << (8 * c);
    }
    return value;
}

void CFastCartColors::ReturnToReference(const CFastCartColors* other)
{
    if (!other)
        return;
    for (int i = 0; i < PadColorsText::Count; ++i)
        SetValue(i, other->Value(i));
}
