#pragma once
#include "shell/CMenuItems.h"
#include <QVector>
#include <QWidget>
#include <memory>

class ElasticPanel;
class QPushButton;

// The menu control: one button per entry of the menu definition, in at most two columns.
// Buttons are enabled by the login state (SyncEnables); a click raises the entry's event.
class IFMenu : public QWidget
{
    Q_OBJECT
public:
    explicit IFMenu(QWidget* parent = nullptr);
    ~IFMenu() override;

    bool Ready() const { return m_ready; }
    void SyncEnables();

    const CMenuItems* Items() const { return m_items.get(); }
    // Button k, 1-based; null when it was not created.
    QPushButton* CmdMenu(int k) const;
    int ButtonCount() const { return static_cast<int>(m_buttons.size()) - 1; }

Q_SIGNALS:
    void OpenForm(const QString& FormName);
    void Logout();
    void QueryExit();

private:
    void LoadControls();
    void CmdMenu_Click(int k);

    std::unique_ptr<CMenuItems> m_items;
    bool m_ready = false;
    ElasticPanel* ElaHolder = nullptr;
    QVector<ElasticPanel*> ElaColumn;
    QVector<QPushButton*> m_buttons; // element 0 is the hidden pattern
};
