#pragma once
#include "foundation/PadColorsText.h"
#include <QObject>
#include <QString>

// The five colours of a pad, each a colour value with red in the low byte: background,
// description, comment, shortcut and time. Their stored form is PadColorsText's 30 digits.
// The defaults live in the kernel's shared store under "DefaultR0", "DefaultG0", "DefaultB0"
// to "DefaultB4", each 0 to 255; without them the pads wear PadDesign's colours.
class CFastCartColors : public QObject
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("CFastCartColors");
    enum Part { BackGroundPart = 0, DescriptionPart, CommentPart, ShortcutPart, TimePart };

    CFastCartColors();

    QString SerializedColors() const;
    // Takes a stored form: a text of any other length than 30 is ignored silently; 30
    // characters that are not five hexadecimal groups are ignored with an ERROR line. A good
    // text writes all five colours and raises Changed once.
    void SetSerializedColors(const QString& text);
    // Reads a stored form that came from outside (a playlist item, the clipboard): whatever
    // does not read as five colours gives the defaults and an ERROR line naming the caller.
    void ReadStored(const QString& text, const QString& procedure);

    qint32 BackGround() const { return m_values[BackGroundPart]; }
    void SetBackGround(qint32 value) { SetValue(BackGroundPart, value); }
    qint32 Description() const { return m_values[DescriptionPart]; }
    void SetDescription(qint32 value) { SetValue(DescriptionPart, value); }
    qint32 Comment() const { return m_values[CommentPart]; }
    void SetComment(qint32 value) { SetValue(CommentPart, value); }
    qint32 Shortcut() const { return m_values[ShortcutPart]; }
    void SetShortcut(qint32 value) { SetValue(ShortcutPart, value); }
    qint32 Time() const { return m_values[TimePart]; }
    void SetTime(qint32 value) { SetValue(TimePart, value); }
    qint32 Value(int part) const { return m_values[size_t(part)]; }
    void SetValue(int part, qint32 value);
    // A colour as the toolkit draws it.
    QColor Color(int part) const;

    // Stores the five colours as the defaults of every pad; only with a kernel. Raises Changed.
    void SaveAsDefaults();
    // Takes the stored defaults; only with a kernel (a pad outside the program keeps its colours).
    void ReturnToDefaults();
    // Copies the five colours of another set; nothing happens without one.
    void ReturnToReference(const CFastCartColors* other);

    // The colours a pad wears when no default is stored.
    static PadColorsText::Values FactoryValues();
    // A colour value (red in the low byte) of a toolkit colour, and back.
    static qint32 ToValue(const QColor& color);
    static QColor ToColor(qint32 value);

Q_SIGNALS:
    void Changed();

private:
    void SetAll(const PadColorsText::Values& values);
    void SaveSingleColor(int index, qint32 value) const;
    qint32 ReadDefault(int index) const;

    PadColorsText::Values m_values;
};
