#include "metering/FakeKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iRecordset.h"

// The demo station's meter settings.
FakeKernel::FakeKernel()
{
    config.insert(QStringLiteral("LevelZeroPercent"), QStringLiteral("80"));
    config.insert(QStringLiteral("LevelTenPercent"), QStringLiteral("60"));
    config.insert(QStringLiteral("WorkLevel"), QStringLiteral("-12"));
    config.insert(QStringLiteral("NoiseLevel"), QStringLiteral("-60"));
}

std::shared_ptr<iFiles> FakeKernel::Files() { throw NotAvailable("Files"); }
std::shared_ptr<iStation> FakeKernel::Station() { throw NotAvailable("Station"); }
std::shared_ptr<iFamilies> FakeKernel::Families() { throw NotAvailable("Families"); }
std::shared_ptr<iUsers> FakeKernel::Users() { throw NotAvailable("Users"); }
std::shared_ptr<iCdRoms> FakeKernel::CdRoms() { throw NotAvailable("CdRoms"); }
std::shared_ptr<iApplication> FakeKernel::Application() { throw NotAvailable("Application"); }
std::shared_ptr<iMacro> FakeKernel::MacroByID(const QString&) { throw NotAvailable("MacroByID"); }
std::unique_ptr<iRecordset> FakeKernel::OpenConfigTable(const QString&, const QString&) { throw NotAvailable("OpenConfigTable"); }
std::unique_ptr<iRecordset> FakeKernel::Execute(const QString&, int) { throw NotAvailable("Execute"); }
std::shared_ptr<iCarts> FakeKernel::Carts() { throw NotAvailable("Carts"); }
std::shared_ptr<iPlayLists> FakeKernel::PlayLists() { throw NotAvailable("PlayLists"); }
std::shared_ptr<iDataService> FakeKernel::DataService() { throw NotAvailable("DataService"); }
CKernel::FilledCart FakeKernel::FillCartFromText(const std::shared_ptr<iCart>&, const QString&) { throw NotAvailable("FillCartFromText"); }
