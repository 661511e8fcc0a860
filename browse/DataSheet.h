#pragma once
#include <QString>
#include <QVector>

// What the data viewer prints: lines of a label part and a value part, each drawn in its own
// colour. A heading is a label alone, a bare value (an ID, a message) a value alone, and a
// property is its name followed by ": " and its value.
class DataSheet
{
public:
    struct Line
    {
        QString label;
        QString value;
    };

    void Heading(const QString& text) { m_lines.append({text, {}}); }
    void Value(const QString& text) { m_lines.append({{}, text}); }
    void Property(const QString& name, const QString& value) { m_lines.append({name + QStringLiteral(": "), value}); }

    const QVector<Line>& Lines() const { return m_lines; }
    // Each line as it reads, label then value.
    QStringList Text() const;

private:
    QVector<Line> m_lines;
};
