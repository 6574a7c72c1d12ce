#include <QCoreApplication>

int TestCodePage(int argc, char** argv);
int TestConditions(int argc, char** argv);
int TestNumbers(int argc, char** argv);
int TestRecordText(int argc, char** argv);
int TestTextTable(int argc, char** argv);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    int failures = 0;
    for (const auto test :
         {TestRecordText, TestCodePage, TestNumbers, TestConditions, TestTextTable})
        failures += test(argc, argv);
    return failures != 0;
}
