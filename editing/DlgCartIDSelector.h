#pragma once
#include <QDialog>

class IFCartIDSelector;

// The dialog around one cart ID selector: the selector's OK keeps its ID and closes the
// dialog accepted, its Cancel clears the ID and closes it rejected.
class DlgCartIDSelector : public QDialog
{
    Q_OBJECT
public:
    explicit DlgCartIDSelector(QWidget* parent = nullptr);
    ~DlgCartIDSelector() override;

    IFCartIDSelector* Selector() const { return IFCartIDSelector1; }
    // The ID chosen; empty after Cancel.
    QString ID() const { return m_id; }

    IFCartIDSelector* IFCartIDSelector1;

private:
    void IFCartIDSelector_OK(const QString& id);
    void IFCartIDSelector_Cancel();

    QString m_id;
};
