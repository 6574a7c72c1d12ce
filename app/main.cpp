#include <QApplication>

#include "app/workstation.h"

// The hotel's workstation. The whole command line is the path of the configuration file; without one
// it is Hotel.Cfg beside the program.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    hotel::Workstation workstation(
        application, hotel::ConfigurationPath(QCoreApplication::arguments(),
                                              QCoreApplication::applicationDirPath()));
    workstation.start();
    return QApplication::exec();
}
