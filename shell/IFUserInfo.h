#pragma once
#include <QFrame>
#include <memory>

class QLabel;
class iUser;
class iUsers;

// The connected-user panel: name, last login, fails and privilege of the current user,
// renewed whenever the kernel says the user changed.
class IFUserInfo : public QFrame
{
    Q_OBJECT
public:
    explicit IFUserInfo(QWidget* parent = nullptr);

    void Init();
    void SetCurrentUser();
    void Refresh();
    void TranslateMe();

    QString ShownName() const;

private:
    void iUsers_CurrentUserChanged();
    QLabel* AddRow(const QString& caption, const QString& name, int row);

    std::shared_ptr<iUsers> m_users;
    std::shared_ptr<iUser> m_user;
    QLabel* Label1;
    QLabel* LblID;
    QLabel* LblLastLogin;
    QLabel* LblFails;
    QLabel* LblPrivilegeDescription;
};
