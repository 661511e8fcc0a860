#include "kernel/EnergyReader.h"
#include "kernelapi/KernelFactory.h"

std::shared_ptr<iEnergyReader> KernelFactory::CreateEnergyReader()
{
    return std::make_shared<EnergyReader>();
}
