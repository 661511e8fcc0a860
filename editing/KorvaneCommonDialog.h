#pragma once
#include <QObject>
#include <QString>
#include <functional>

class DlgCartIDSelector;
class QWidget;

// The cart ID dialog in the shape of a common dialog: an object without a face that a form
// holds and calls. ShowOpenCart asks for a cart to read, ShowSaveCart for an ID to write with
// its description and comment; both show the dialog modally over the form and read back what
// was chosen. CartFilter says which kinds of cart are listed: 1 sounds, 2 macros, 4 controls.
//
// The modal show is a seam: the program runs the dialog's own loop, tests install a runner
// that works the dialog and returns, so that nothing blocks.
class KorvaneCommonDialog : public QObject
{
    Q_OBJECT
public:
    enum Filter : qint32 { Sounds = 1, Macros = 2, Controls = 4, AllKinds = 7 };
    // Shows the dialog and returns when it has closed.
    using ModalRunner = std::function<void(DlgCartIDSelector& dialog)>;

    // The form the dialog shows over.
    explicit KorvaneCommonDialog(QWidget* parent = nullptr);

    qint32 CartFilter() const { return m_cartFilter; }
    void SetCartFilter(qint32 filter) { m_cartFilter = filter; }
    QString CartId() const { return m_cartId; }
    void SetCartId(const QString& id) { m_cartId = id; }
    QString CartDescription() const { return m_cartDescription; }
    QString CartComment() const { return m_cartComment; }

    // All kinds, and the three texts empty.
    void Clear();
    void ShowOpenCart();
    void ShowSaveCart(bool allowExisting);

    // Installs how the dialog is shown for the whole process; returns the previous runner.
    static ModalRunner SetModalRunner(ModalRunner runner);

private:
    void Prepare(DlgCartIDSelector& dialog, int mode) const;
    static void Run(DlgCartIDSelector& dialog);

    QWidget* m_parent;
    qint32 m_cartFilter = AllKinds;
    QString m_cartId;
    QString m_cartDescription;
    QString m_cartComment;
};
