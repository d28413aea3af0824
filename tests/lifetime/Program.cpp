// SPDX-License-Identifier: MIT
// A program that ends in the way that its first argument names. Its logs lie in the folder of the second; the
// third is its add-in.

#include "Witness.h"
#include "environment/BTL_ENV_ApplicationIni.h"
#include "environment/BTL_ENV_UserFolders.h"
#include "foundation/logs/UTL_LOG_Log.h"
#include "foundation/logs/UTL_LOG_LogStream.h"
#include "platform/host/Host_Path.h"

#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <thread>

namespace
{

const Lifetime::CWitness global("global");

/// The folders of the user are kept from here on; the description of the program is its own again.
void PutUserDataInto(const std::string& folder)
{
    BTL::CApplicationIni description;
    description.UserDataPath = Sysutils::FromHostPath(folder);
    BTL::CApplicationIni::Set(&description);
    static_cast<void>(BTL::GetUserDataPath());
    BTL::CApplicationIni::Set(nullptr);
}

} // namespace

int main(int, char** argv)
{
    const std::string way = argv[1];
    const std::string folder = argv[2];
    BTL::SetLogFile((folder + "/log.txt").c_str());
    UTL::set_log_file((folder + "/stream.txt").c_str());
    PutUserDataInto(folder);

    std::atexit([] { Lifetime::Testify("atexit"); });
    thread_local const Lifetime::CWitness ofMain("main thread");
    void* const addIn = dlopen(argv[3], RTLD_NOW);
    if (addIn == nullptr) {
        return 2;
    }
    Lifetime::Testify("main");
    if (way == "unload") {
        dlclose(addIn);
    }
    std::thread([&way] {
        thread_local const Lifetime::CWitness ofThread("second thread");
        if (way == "exit in thread") {
            std::exit(0);
        }
    }).join();
    if (way == "exit") {
        std::exit(0);
    }
}
