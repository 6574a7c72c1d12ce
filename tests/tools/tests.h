#pragma once

namespace hotel {

int RunPrintScriptTests(int argc, char** argv);
int RunPrintJobTests(int argc, char** argv);
int RunPrintGridTests(int argc, char** argv);

} // namespace hotel
