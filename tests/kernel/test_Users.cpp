#include "KernelTest.h"
#include "foundation/Strings.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include <QSignalSpy>

namespace {
const char* const UserDb = "User.MDB";
const QString Admin = QStringLiteral("ADMIN");
const QString AdminPassword = QStringLiteral("korvane");
const QString Presenter = QStringLiteral("PRESENTER");
const QString PresenterPassword = QStringLiteral("onair");

QString Today() { return QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")); }
}

class UsersTest : public KernelTest
{
protected:
    int Fails(const QString& user) const
    {
        return Read(UserDb, QStringLiteral("SELECT Fails FROM Usuari WHERE ID = ?"), {user}).toInt();
    }

    void AddUser(const QString& id, const QString& password, int privilege) const
    {
        Run(UserDb, QStringLiteral("INSERT INTO Usuari (ID, Password, Privilege, Fails) VALUES (?, ?, ?, 0)"),
            {id, ScramblePassword(password), privilege});
    }

    std::shared_ptr<iUsers> users = kernel->Users();
};

TEST_F(UsersTest, LoginAcceptsTheStoredPasswordAndRefusesEverythingElse)
{
    EXPECT_FALSE(users->Login(Admin, QStringLiteral("wrong")));
    EXPECT_FALSE(users->Login(QStringLiteral("NOBODY"), AdminPassword));
    EXPECT_EQ(users->CurrentUser(), nullptr);

    ASSERT_TRUE(users->Login(Admin, AdminPassword));
    const auto user = users->CurrentUser();
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(user->Name(), Admin);
    EXPECT_EQ(user->Privilege(), 1);
    EXPECT_EQ(user->PrivilegeDescription(), "Super Usuari");

    EXPECT_EQ(LogLinesWith(QStringLiteral("WARN: Korvane_Kernel.Users.Login: 'NOBODY' refused")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("WARN: Korvane_Kernel.Users.Login: 'ADMIN' refused")).size(), 1);
}

TEST_F(UsersTest, NamesMatchTheStoredIDInAnyCase)
{
    AddUser(QStringLiteral("anna"), QStringLiteral("pw"), 0);
    AddUser(QStringLiteral("McKay"), QStringLiteral("pw"), 0);
    AddUser(QStringLiteral("Josée"), QStringLiteral("pw"), 0);

    // The login form raises what is typed to upper case.
    ASSERT_TRUE(users->Login(QStringLiteral("ANNA"), QStringLiteral("pw")));
    EXPECT_EQ(users->CurrentUser()->Name(), QStringLiteral("anna")) << "the user is named as stored";
    EXPECT_EQ(Read(UserDb, QStringLiteral("SELECT LastDate FROM Usuari WHERE ID = 'anna'")).toString(), Today());
    ASSERT_TRUE(users->Login(QStringLiteral("MCKAY"), QStringLiteral("pw")));
    EXPECT_EQ(users->CurrentUser()->Name(), QStringLiteral("McKay"));
    ASSERT_TRUE(users->Login(QStringLiteral("JOSÉE"), QStringLiteral("pw")));
    EXPECT_EQ(users->CurrentUser()->Name(), QStringLiteral("Josée"));
    ASSERT_TRUE(users->Login(QStringLiteral("Admin"), AdminPassword));

    // A refused password is counted in the stored row, not under the typed name.
    EXPECT_FALSE(users->Login(QStringLiteral("MCKAY"), QStringLiteral("bad")));
    EXPECT_EQ(Fails(QStringLiteral("McKay")), 1);
    EXPECT_TRUE(users->CurrentUser()->Name() == QStringLiteral("ADMIN"));
    EXPECT_FALSE(users->Login(QStringLiteral("ANN"), QStringLiteral("pw")));
}

TEST_F(UsersTest, PasswordsWithTheWesternCodePagesOwnCharactersLogIn)
{
    // The euro sign, a ligature and curly quotes: the code page's bytes 0x80..0x9F.
    const QString password = QStringLiteral("€ Œ “x” ‘y’");
    ASSERT_TRUE(users->Login(Presenter, PresenterPassword));
    ASSERT_TRUE(users->CurrentUser()->ChangePassword(PresenterPassword, password).accepted);
    users->Logout();
    EXPECT_FALSE(users->Login(Presenter, QStringLiteral("? ? ?x? ?y?")));
    EXPECT_FALSE(users->Login(Presenter, QStringLiteral("€ OE \"x\" 'y'")));
    EXPECT_TRUE(users->Login(Presenter, password));
    EXPECT_EQ(Read(UserDb, QStringLiteral("SELECT Password FROM Usuari WHERE ID = ?"), {Presenter}).toString(),
              ScramblePassword(password));
}

TEST_F(UsersTest, AFormStoredWithControlCharactersForTheBytes0x80To0x9FStillLogsIn)
{
    // "korvane" scrambles to a form whose first byte is 0x87, today stored as the code page's
    // '‡'; earlier forms held such bytes as the control character of the same code.
    QString earlier = ScramblePassword(AdminPassword);
    ASSERT_EQ(earlier.at(0), QChar(0x2021));
    earlier[0] = QChar(0x87);
    Run(UserDb, QStringLiteral("UPDATE Usuari SET Password = ? WHERE ID = ?"), {earlier, Admin});
    EXPECT_TRUE(users->Login(Admin, AdminPassword));
    EXPECT_FALSE(users->Login(Admin, QStringLiteral("korvanf")));
}

TEST_F(UsersTest, RefusedPasswordsAreCountedInTheRowAndShownAtTheNextLogin)
{
    EXPECT_FALSE(users->Login(Presenter, QStringLiteral("x")));
    EXPECT_FALSE(users->Login(Presenter, QString()));
    EXPECT_EQ(Fails(Presenter), 2);
    EXPECT_EQ(Fails(Admin), 0);

    const auto reopened = Reopen()->Users();
    ASSERT_TRUE(reopened->Login(Presenter, PresenterPassword));
    EXPECT_EQ(reopened->CurrentUser()->Fails(), "2");
}

TEST_F(UsersTest, LastLoginShowsThePreviousConnectionAndTheRowTakesToday)
{
    Run(UserDb, QStringLiteral("UPDATE Usuari SET LastDate = '01/02/2003' WHERE ID = ?"), {Admin});

    ASSERT_TRUE(users->Login(Admin, AdminPassword));
    EXPECT_EQ(users->CurrentUser()->LastLogin(), "01/02/2003");
    EXPECT_EQ(Read(UserDb, QStringLiteral("SELECT LastDate FROM Usuari WHERE ID = ?"), {Admin}).toString(), Today());

    users->Logout();
    ASSERT_TRUE(users->Login(Admin, AdminPassword));
    EXPECT_EQ(users->CurrentUser()->LastLogin(), Today());
}

TEST_F(UsersTest, CurrentUserChangedIsRaisedOncePerChangeOfState)
{
    QSignalSpy changed(users.get(), &iUsers::CurrentUserChanged);
    users->Logout();
    EXPECT_EQ(changed.count(), 0) << "nobody was logged in";

    ASSERT_TRUE(users->Login(Admin, AdminPassword));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_FALSE(users->Login(Admin, QStringLiteral("wrong")));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(users->CurrentUser()->Name(), Admin) << "a refused login leaves the current user";

    users->Logout();
    users->Logout();
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(users->CurrentUser(), nullptr);
}

TEST_F(UsersTest, QuotesInUserNamesAreData)
{
    AddUser(QStringLiteral("O'BRIEN"), QStringLiteral("pw"), 2);

    EXPECT_FALSE(users->Login(QStringLiteral("X' OR '1'='1"), QStringLiteral("pw")));
    EXPECT_FALSE(users->Login(QStringLiteral("O'BRIEN"), QStringLiteral("bad")));
    EXPECT_EQ(Fails(QStringLiteral("O'BRIEN")), 1);
    ASSERT_TRUE(users->Login(QStringLiteral("O'BRIEN"), QStringLiteral("pw")));
    EXPECT_EQ(users->CurrentUser()->PrivilegeDescription(), "Privilegis Remots");
}

TEST_F(UsersTest, ARowOfNullsIsAUserWithAnEmptyPassword)
{
    Run(UserDb, QStringLiteral("INSERT INTO Usuari (ID, Privilege, Fails) VALUES ('GHOST', NULL, NULL)"));

    EXPECT_FALSE(users->Login(QStringLiteral("GHOST"), QStringLiteral("something")));
    EXPECT_EQ(Fails(QStringLiteral("GHOST")), 1) << "a Null count starts at zero";
    ASSERT_TRUE(users->Login(QStringLiteral("GHOST"), QString()));
    const auto ghost = users->CurrentUser();
    EXPECT_EQ(ghost->LastLogin(), "");
    EXPECT_EQ(ghost->Privilege(), 0);
    EXPECT_EQ(ghost->PrivilegeDescription(), "Usuari Normal");
}

TEST_F(UsersTest, PrivilegesOutsideTheListAreUnknown)
{
    AddUser(QStringLiteral("ODD"), QStringLiteral("pw"), 7);
    ASSERT_TRUE(users->Login(QStringLiteral("ODD"), QStringLiteral("pw")));
    EXPECT_EQ(users->CurrentUser()->PrivilegeDescription(), "Unknown");
}

TEST_F(UsersTest, ChangePasswordNeedsTheOriginalAndANonEmptyNewOne)
{
    ASSERT_TRUE(users->Login(Presenter, PresenterPassword));
    const auto user = users->CurrentUser();

    auto refused = user->ChangePassword(QStringLiteral("wrong"), QStringLiteral("new"));
    EXPECT_FALSE(refused.accepted);
    EXPECT_EQ(refused.message, "The original password is not correct.");
    refused = user->ChangePassword(PresenterPassword, QString());
    EXPECT_FALSE(refused.accepted);
    EXPECT_EQ(refused.message, "The new password can't be empty.");

    kernel->SetConfig(QStringLiteral("Translator.Language"), QStringLiteral("CAT"));
    EXPECT_EQ(user->ChangePassword(QStringLiteral("wrong"), QStringLiteral("new")).message,
              "La contrasenya actual no és correcta.");

    const auto accepted = user->ChangePassword(PresenterPassword, QStringLiteral("fresh"));
    EXPECT_TRUE(accepted.accepted);
    EXPECT_EQ(accepted.message, "");
    users->Logout();
    EXPECT_FALSE(users->Login(Presenter, PresenterPassword));
    EXPECT_TRUE(users->Login(Presenter, QStringLiteral("fresh")));
}

TEST_F(UsersTest, AutomaticLoginUsesTheStationsConfiguredUser)
{
    QSignalSpy changed(users.get(), &iUsers::CurrentUserChanged);
    kernel->AutomaticLogin();
    EXPECT_EQ(changed.count(), 0) << "nothing configured, nothing happens";

    ASSERT_TRUE(kernel->SetStationConfig(QStringLiteral("AutoLoginUser"), QStringLiteral("NOBODY")));
    kernel->AutomaticLogin();
    EXPECT_EQ(users->CurrentUser(), nullptr);

    ASSERT_TRUE(kernel->SetStationConfig(QStringLiteral("AutoLoginUser"), Presenter));
    kernel->AutomaticLogin();
    EXPECT_EQ(changed.count(), 1);
    ASSERT_NE(users->CurrentUser(), nullptr);
    EXPECT_EQ(users->CurrentUser()->Name(), Presenter);
    EXPECT_EQ(Fails(Presenter), 0);
}

TEST_F(UsersTest, ScrambledFormsWithControlCharactersOrTrailingBlanksStillLogIn)
{
    // A password whose scrambled form holds a NUL and one whose form ends in a blank, which
    // the write rule of text fields trims away.
    QString withNul, withTrailingBlank;
    for (int n = 0; n < 100000 && (withNul.isEmpty() || withTrailingBlank.isEmpty()); ++n) {
        const QString candidate = QString::number(n, 36);
        const QString scrambled = ScramblePassword(candidate);
        if (withNul.isEmpty() && scrambled.contains(QChar(0)))
            withNul = candidate;
        if (withTrailingBlank.isEmpty() && scrambled.endsWith(QLatin1Char(' ')))
            withTrailingBlank = candidate;
    }
    ASSERT_FALSE(withNul.isEmpty());
    ASSERT_FALSE(withTrailingBlank.isEmpty());

    for (const QString& password : {withNul, withTrailingBlank}) {
        // Stored the way the administration screens store it: through a recordset.
        auto userDb = OpenData(UserDb);
        auto rows = userDb->OpenRecordset(QStringLiteral("Usuari"));
        rows->FindFirst(QStringLiteral("ID = 'PRESENTER'"));
        ASSERT_FALSE(rows->NoMatch());
        rows->Edit();
        rows->SetValue(QStringLiteral("Password"), ScramblePassword(password));
        rows->Update();

        EXPECT_TRUE(users->Login(Presenter, password)) << password.toStdString();
        EXPECT_FALSE(users->Login(Presenter, password + QLatin1Char('x')));
    }
}
