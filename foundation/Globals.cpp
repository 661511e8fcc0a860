#include "foundation/Globals.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iUsers.h"

namespace Globals {
namespace {
std::shared_ptr<CKernel>& TheKernel()
{
    static std::shared_ptr<CKernel> kernel;
    return kernel;
}
}

std::shared_ptr<CKernel> Kernel() { return TheKernel(); }
void SetKernel(std::shared_ptr<CKernel> kernel) { TheKernel() = std::move(kernel); }

std::shared_ptr<iUsers> Users()
{
    auto kernel = Kernel();
    auto users = kernel ? kernel->Users() : nullptr;
    if (!users)
        throw KernelError(QStringLiteral("The kernel's users are not available"));
    return users;
}

Station& TheStation()
{
    static Station station;
    return station;
}

Recordsets& Data()
{
    static Recordsets data;
    return data;
}

std::array<Recordset*, 9> Recordsets::All() const
{
    return {RsCart.get(), RsRMacro.get(), RsSound.get(), RsClient.get(), RsFamilia.get(),
            RsGrup.get(), RsRFamilia.get(), RsRGrup.get(), RsUsuari.get()};
}

void Recordsets::Close()
{
    for (auto* rs : {&RsCart, &RsRMacro, &RsSound, &RsClient, &RsFamilia, &RsGrup, &RsRFamilia, &RsRGrup, &RsUsuari})
        rs->reset();
    SoundDB.reset();
    UserDB.reset();
}

bool ConfigIsYes(const QString& key)
{
    auto kernel = Kernel();
    return kernel && kernel->Config(key).toString().toLower() == QLatin1String("yes");
}
}
