#pragma once
#include "kernelapi/CKernel.h"
#include "metering/FakeChannels.h"
#include <QHash>

// A kernel root with a shared store and fake channels; everything else is not available.
class FakeKernel : public CKernel
{
public:
    FakeKernel();

    std::shared_ptr<iChannels> Channels() override { return channels; }
    QVariant Config(const QString& key) const override { return config.value(key, QString()); }
    void SetConfig(const QString& key, const QVariant& value) override { config.insert(key, value); }
    std::shared_ptr<iTranslator> Translator() override { return nullptr; }

    std::shared_ptr<iFiles> Files() override;
    std::shared_ptr<iStation> Station() override;
    std::shared_ptr<iFamilies> Families() override;
    std::shared_ptr<iUsers> Users() override;
    std::shared_ptr<iCdRoms> CdRoms() override;
    std::shared_ptr<iApplication> Application() override;
    std::shared_ptr<iMacro> MacroByID(const QString&) override;
    QString StationID() const override { return QStringLiteral("TEST"); }
    QVariant StationConfig(const QString&) const override { return QString(); }
    bool SetStationConfig(const QString&, const QVariant&) override { return false; }
    void ConfigRecordChanged(const QVariant&) override {}
    std::unique_ptr<iRecordset> OpenConfigTable(const QString&, const QString&) override;
    std::unique_ptr<iRecordset> Execute(const QString&, int) override;
    QString Version() const override { return QStringLiteral("test"); }
    void AutomaticLogin() override {}
    std::shared_ptr<iCarts> Carts() override;
    std::shared_ptr<iPlayLists> PlayLists() override;
    std::shared_ptr<iDataService> DataService() override;
    FilledCart FillCartFromText(const std::shared_ptr<iCart>&, const QString&) override;
    void Import() override {}
    void Refresh() override {}
    void Shout(const QString&) override {}

    std::shared_ptr<FakeChannels> channels = std::make_shared<FakeChannels>();
    QHash<QString, QVariant> config;
};
