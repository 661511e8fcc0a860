#pragma once
#include <QPoint>
#include <QString>
#include <QVariant>
#include <QVector>
#include <memory>
#include <optional>
#include <vector>

class QWidget;

// The one seam through which the workstation asks the user anything: message boxes, input
// boxes, popup menus and file dialogs. The program shows Qt widgets; KORVANE_DIALOGS=print
// answers every box with its default button and prints it to standard error (headless runs);
// tests install a scripted handler and read back what was asked. Nothing blocks in a test.
namespace Dialogs {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Icon { None, Information, Warning, Critical, Question };
enum class Answer { Ok, Cancel, Yes, No };

struct Box
{
    QString text;
    Buttons buttons = Buttons::Ok;
    QString title;
    Icon icon = Icon::None;
};

// One line of a popup menu: a leading "-" makes a heading, "-" alone a separator; the key
// names the owner and, after a point, the action. A line with lines of its own opens them as
// a sub-menu.
struct PopupLine
{
    QString text;
    QString key;
    QVariant data;
    bool enabled = true;
    // A line that shows a check mark (checked or not); the mark is drawn when checked.
    bool checkable = false;
    bool checked = false;
    std::vector<PopupLine> lines;

    // A line of the text that answers the key with the data; a line without a key is a
    // heading (text after "-") or a separator ("-" alone).
    static PopupLine Item(const QString& text, const QString& key = {}, const QVariant& data = {})
    {
        PopupLine line;
        line.text = text;
        line.key = key;
        line.data = data;
        return line;
    }
};

class Handler
{
public:
    virtual ~Handler() = default;
    virtual Answer MessageBox(const Box& box) = 0;
    // The typed text, or nothing when cancelled.
    virtual std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& defaultText) = 0;
    // The key of the chosen line, or empty when nothing was chosen.
    virtual QString PopupMenu(const QVector<PopupLine>& lines, const QPoint& globalPos) = 0;
    // A file name, or empty when cancelled.
    virtual QString OpenFileName(const QString& title, const QString& folder, const QString& filter) = 0;
};

// The answer a box gets when nobody is there to press a button.
Answer DefaultAnswer(Buttons buttons);

// Installs a handler for the whole process; returns the previous one.
std::unique_ptr<Handler> SetHandler(std::unique_ptr<Handler> handler);
// Installs the handler that KORVANE_DIALOGS asks for ("print"), else the widget one.
void InstallFromEnvironment();

Answer MessageBox(const QString& text, Buttons buttons = Buttons::Ok, const QString& title = {}, Icon icon = Icon::None);
std::optional<QString> InputBox(const QString& prompt, const QString& title = {}, const QString& defaultText = {});
QString PopupMenu(const QVector<PopupLine>& lines, const QPoint& globalPos);
QString OpenFileName(const QString& title, const QString& folder, const QString& filter);
}
