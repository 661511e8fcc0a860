#include "tools/StationCommand.h"
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout), err(stderr);
    return StationCommand(out, err).Run(app.arguments().mid(1));
}
