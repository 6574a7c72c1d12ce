#pragma once

namespace hotel {

int RunCalculatorTests(int argc, char** argv);
int RunCategoriesTests(int argc, char** argv);
int RunDeliveredTablesTests(int argc, char** argv);
int RunIdentityNumberTests(int argc, char** argv);
int RunPinyinTests(int argc, char** argv);

} // namespace hotel
