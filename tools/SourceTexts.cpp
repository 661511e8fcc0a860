#include "tools/SourceTexts.h"
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {
// One C++ string literal, escapes included, possibly wrapped in a Qt string maker.
const QString Literal = QStringLiteral(R"re((?:QStringLiteral|QString::fromLatin1|QString::fromUtf8|QLatin1String|QString)?\(?\s*"((?:[^"\\\n]|\\.)*)"\s*\)?)re");

const QRegularExpression& Pattern()
{
    // Tr(literal); a caption setter with a literal; a captioned widget made with a literal.
    static const QRegularExpression pattern(
        QStringLiteral(R"re((?:\bTr|\bsetWindowTitle|\bsetText|\bsetToolTip|\bsetTitle|\bsetPlaceholderText|\bsetTabText|)re")
        + QStringLiteral(R"re(\bnew\s+Q(?:Label|PushButton|ToolButton|CheckBox|RadioButton|GroupBox))\(\s*)re") + Literal);
    return pattern;
}

bool HasLetter(const QString& text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isLetter(); });
}

// Helpers of the workstation that translate one of their arguments, with the place (from 0)
// of each translated argument.
struct TranslatingHelper
{
    const char* name;
    std::initializer_list<int> places;
};
const TranslatingHelper TranslatingHelpers[] = {
    {"Item", {0}},        {"item", {0}},         {"Heading", {0}},     {"heading", {0}}, {"Sub", {0}},
    {"Confirmed", {0}},   {"MenuLine", {0}},     {"Line", {0}},        {"line", {0}},    {"Caption", {0}},
    {"Error", {0}},       {"DisplayError", {0}}, {"DisplayWarn", {0}}, {"Property", {1}}, {"MacroButton", {1, 2}},
    {"ToolButton", {1}},  {"MakeSwitch", {2}},   {"MakeButton", {2}},
};

const QRegularExpression& HelperCall()
{
    static const QRegularExpression pattern = [] {
        QStringList names;
        for (const TranslatingHelper& helper : TranslatingHelpers)
            names << QString::fromLatin1(helper.name);
        return QRegularExpression(QStringLiteral("(?<![\\w.:>])(") + names.join(QLatin1Char('|')) + QStringLiteral(")\\("));
    }();
    return pattern;
}

// The top-level arguments of a call whose "(" ends just before from, as source text.
QStringList Arguments(const QString& source, qsizetype from)
{
    QStringList arguments{QString()};
    int depth = 1;
    for (qsizetype i = from; i < source.size(); ++i) {
        const QChar c = source[i];
        if (c == QLatin1Char('"')) {
            const qsizetype start = i;
            for (++i; i < source.size() && source[i] != QLatin1Char('"'); ++i)
                if (source[i] == QLatin1Char('\\'))
                    ++i;
            arguments.last() += source.mid(start, i - start + 1);
            continue;
        }
        if (c == QLatin1Char('(') || c == QLatin1Char('[') || c == QLatin1Char('{'))
            ++depth;
        else if ((c == QLatin1Char(')') || c == QLatin1Char(']') || c == QLatin1Char('}')) && --depth == 0)
            break;
        if (c == QLatin1Char(',') && depth == 1)
            arguments << QString();
        else
            arguments.last() += c;
    }
    return arguments;
}
}

QString SourceTexts::Unescape(const QString& literal)
{
    QString text;
    for (int i = 0; i < literal.size(); ++i) {
        const QChar c = literal[i];
        if (c != QLatin1Char('\\') || i + 1 == literal.size()) {
            text += c;
            continue;
        }
        const QChar next = literal[++i];
        if (next == QLatin1Char('u') && i + 4 < literal.size()) {
            text += QChar(char16_t(literal.mid(i + 1, 4).toUShort(nullptr, 16)));
            i += 4;
            continue;
        }
        text += next == QLatin1Char('n') ? QChar(u'\n') : next == QLatin1Char('t') ? QChar(u'\t') : next;
    }
    return text;
}

void SourceTexts::AddText(QVector<Text>& texts, QString text, const QString& source, qsizetype at, const QString& file)
{
    if (text.startsWith(QLatin1Char('-')))
        text.remove(0, 1);
    if (HasLetter(text))
        texts << Text{text, file, int(QStringView(source).left(at).count(QLatin1Char('\n'))) + 1};
}

void SourceTexts::ExtractHelperCalls(QVector<Text>& texts, const QString& source, const QString& file)
{
    static const QRegularExpression wholeLiteral(QStringLiteral("^\\s*") + Literal + QStringLiteral("\\s*$"));
    auto call = HelperCall().globalMatch(source);
    while (call.hasNext()) {
        const auto found = call.next();
        const QStringList arguments = Arguments(source, found.capturedEnd());
        for (const TranslatingHelper& helper : TranslatingHelpers) {
            if (found.captured(1) != QLatin1String(helper.name))
                continue;
            for (int place : helper.places) {
                const auto literal = place < arguments.size() ? wholeLiteral.match(arguments[place]) : QRegularExpressionMatch();
                if (literal.hasMatch())
                    AddText(texts, Unescape(literal.captured(1)), source, found.capturedStart(), file);
            }
        }
    }
}

QVector<SourceTexts::Text> SourceTexts::Extract(const QString& source, const QString& file)
{
    QVector<Text> texts;
    auto match = Pattern().globalMatch(source);
    while (match.hasNext()) {
        const auto found = match.next();
        AddText(texts, Unescape(found.captured(1)), source, found.capturedStart(), file);
    }
    ExtractHelperCalls(texts, source, file);
    return texts;
}

QVector<SourceTexts::Text> SourceTexts::ExtractFolders(const QString& root, const QStringList& folders)
{
    QStringList files;
    for (const QString& folder : folders) {
        QDirIterator it(root + QLatin1Char('/') + folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            files << it.next();
    }
    files.sort();
    QVector<Text> texts;
    for (const QString& path : files) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            texts += Extract(QString::fromUtf8(file.readAll()), path.mid(root.size() + 1));
    }
    return texts;
}

QStringList SourceTexts::WorkstationFolders()
{
    return {QStringLiteral("shell"), QStringLiteral("foundation"), QStringLiteral("browse"), QStringLiteral("onair"),
            QStringLiteral("editing"), QStringLiteral("metering"), QStringLiteral("web"), QStringLiteral("admin"),
            QStringLiteral("disc")};
}

QStringList SourceTexts::Untranslated(const QVector<Text>& texts, const QVector<Translations::Row>& rows,
                                      const QStringList& languages)
{
    QSet<QString> known;
    for (const Translations::Row& row : rows)
        known.insert(row.language + QLatin1Char('\t') + row.original);
    QStringList missing;
    QSet<QString> told;
    for (const Text& text : texts)
        for (const QString& language : languages)
            if (!known.contains(language + QLatin1Char('\t') + text.text) && !told.contains(language + text.text)) {
                told.insert(language + text.text);
                missing << text.text + QStringLiteral("  (") + text.file + QLatin1Char(':') + QString::number(text.line)
                               + QStringLiteral(", no ") + language + QLatin1Char(')');
            }
    return missing;
}
