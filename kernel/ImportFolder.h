#pragma once
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>

// The station's import folder: where audio files are dropped to become carts. What was taken
// moves to done/, what was refused to refused/ with "<name>.reason.txt" beside it. A moved
// file whose name is taken in its new folder gets a numbered name ("Jingle-1.wav"), so
// nothing is overwritten.
//
// A file still being written is left for a later scan: one whose name marks it as a partial
// copy (ending ".part", ".tmp", ".crdownload" or "~", or starting with a dot), or one changed
// less than SettleSeconds ago by the folder's clock. The age of the last change is the one
// rule that every copier obeys (a copy over the network, a browser, cp), and a clock given
// by the caller makes it testable.
class ImportFolder
{
public:
    using Clock = std::function<QDateTime()>;
    static constexpr int SettleSeconds = 2;
    static const QString DoneFolder;
    static const QString RefusedFolder;

    // Creates the folder when it is missing; throws KernelError when it cannot.
    ImportFolder(const QString& root, Clock clock);

    const QString& Root() const { return m_root; }
    // The files ready to import, by name; Waiting those left for the next scan.
    QStringList Ready();
    const QStringList& Waiting() const { return m_waiting; }

    // Moves a file to done/; gives where it went. Throws KernelError when it cannot.
    QString MoveToDone(const QString& path) const;
    // Moves a file to refused/ and writes the reason beside it. Throws KernelError when it
    // cannot.
    QString MoveToRefused(const QString& path, const QString& reason) const;

    // A name in folder not taken yet: name itself, else name with "-1", "-2" ... before its
    // extension.
    static QString FreeName(const QString& folder, const QString& name);
    static bool LooksPartial(const QString& name);

private:
    QString MoveTo(const QString& folder, const QString& path) const;

    QString m_root;
    Clock m_clock;
    QStringList m_waiting;
};
