#pragma once
#include <QString>
#include <array>
#include <memory>

class CKernel;
class iUsers;
class Database;
class Recordset;

// Process-wide state of the workstation, set during start-up and read everywhere.
// The kernel root is set once by StartKernel and never cleared; the databases and the nine
// shared recordsets are opened by SetRecordsets and requeried by the background timer.
namespace Globals {
std::shared_ptr<CKernel> Kernel();
// The kernel's users; throws KernelError when there is no kernel (before start-up).
std::shared_ptr<iUsers> Users();
void SetKernel(std::shared_ptr<CKernel> kernel);

struct Station
{
    QString StationID;
    float ResolutionX = 0;
    float ResolutionY = 0;
    QString DatabasePath;
};
Station& TheStation();

struct Recordsets
{
    std::unique_ptr<Database> SoundDB;
    std::unique_ptr<Database> UserDB;
    std::unique_ptr<Recordset> RsCart, RsRMacro, RsSound;
    std::unique_ptr<Recordset> RsClient, RsFamilia, RsGrup, RsRFamilia, RsRGrup, RsUsuari;

    // The nine recordsets in their fixed order; absent ones are null.
    std::array<Recordset*, 9> All() const;
    void Close();
};
Recordsets& Data();

// A value of the kernel's shared store, compared in lower case with "yes". False without a kernel.
bool ConfigIsYes(const QString& key);
}
