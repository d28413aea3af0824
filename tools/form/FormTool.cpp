// SPDX-License-Identifier: MIT
//
// Compiles the texts of forms, checks them, makes sources of them that put them into a program, and shows
// what a compiled form says.

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormCheck.h"
#include "platform/runtime/filer/Classes_FormText.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <dlfcn.h>

namespace
{

using namespace Classes;

constexpr const char* Usage = R"(Usage: trs8_btl_form COMMAND [OPTION...] FILE...

  check FILE...           looks for faults in texts of forms
  compile FILE -o OUT     writes the binary form of a text
  text FILE [-o OUT]      writes the text of a binary form
  source FILE -o OUT.cpp  writes a C++ source that registers the binary form of a text under its class

  -o OUT                  the file to write
  --symbol NAME           the name in the source by which a linker takes it from a static library
  --load LIBRARY          also knows the classes that this shared library registers
  --all-classes           a class that nobody registered is a fault, but for that of the form itself

Each fault is told as FILE:LINE:COLUMN: error: WHAT. The result is 0, 1 if there were faults, or 2 for a wrong call.
)";

/// A wrong call of the program.
class BadCall : public std::runtime_error
{
public:
    using runtime_error::runtime_error;
};

/// A file that has faults, which were told.
class Faulty : public std::exception
{
};

struct Options
{
    std::string command;
    std::vector<std::string> files;
    std::string out;
    std::string symbol;
    TFormClasses classes = fcKnown;
};

void LoadLibrary(const std::string& path)
{
    // It stays: its classes do.
    if (dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL) == nullptr) {
        throw std::runtime_error(dlerror());
    }
}

Options ParseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    std::size_t at = 0;
    const auto next = [&] {
        if (at == arguments.size()) {
            throw BadCall(arguments.empty() ? "a command is missing" : arguments.back() + " takes a value");
        }
        return arguments[at++];
    };
    options.command = next();
    while (at < arguments.size()) {
        const std::string argument = next();
        if (argument == "-o") {
            options.out = next();
        } else if (argument == "--symbol") {
            options.symbol = next();
        } else if (argument == "--load") {
            LoadLibrary(next());
        } else if (argument == "--all-classes") {
            options.classes = fcAll;
        } else if (argument.size() > 1 && argument.starts_with('-')) {
            throw BadCall("unknown option " + argument);
        } else {
            options.files.push_back(argument);
        }
    }
    if (options.files.empty()) {
        throw BadCall("a file is missing");
    }
    return options;
}

std::string ReadFile(const std::string& path)
{
    TMemoryStream stream;
    stream.LoadFromFile(Sysutils::FromHostPath(path));
    return std::string(stream.AsView());
}

void WriteFile(const std::string& path, std::string_view content)
{
    TFileStream file(Sysutils::FromHostPath(path), fmCreate);
    file.WriteBuffer(content.data(), static_cast<System::Int64>(content.size()));
    file.Close();
}

TMemoryStream& Filled(TMemoryStream& stream, std::string_view content)
{
    stream.WriteBuffer(content.data(), static_cast<System::Int64>(content.size()));
    stream.setPosition(0);
    return stream;
}

/// Whether the text has no fault; tells those that it has.
bool Check(const std::string& path, const std::string& text, TFormClasses classes)
{
    const std::vector<TFormFault> faults = CheckFormText(text, classes);
    for (const TFormFault& fault : faults) {
        std::cerr << path << ':' << fault.Line << ':' << fault.Column << ": error: " << fault.Message << '\n';
    }
    return faults.empty();
}

std::string Compile(const std::string& path, const Options& options)
{
    const std::string text = ReadFile(path);
    if (!Check(path, text, options.classes)) {
        throw Faulty();
    }
    TMemoryStream input;
    TMemoryStream output;
    ObjectTextToBinary(&Filled(input, text), &output);
    return std::string(output.AsView());
}

std::string Decompile(const std::string& path)
{
    TMemoryStream input;
    TMemoryStream output;
    ObjectBinaryToText(&Filled(input, ReadFile(path)), &output);
    return std::string(output.AsView());
}

/// The name of the class that a form's first line tells.
std::string ClassOf(std::string_view text)
{
    const std::string_view line = text.substr(0, text.find_first_of("[\n"));
    const std::string_view words = line.substr(0, line.find_last_not_of(' ') + 1);
    return std::string(words.substr(words.find_last_of(' ') + 1));
}

/// The bytes as the content of a string literal, in lines. Octal digits end by themselves, hexadecimal ones
/// don't.
std::string Literal(std::string_view bytes)
{
    std::string literal;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        literal += i % 32 == 0 ? "\n    \"" : "";
        char digits[8];
        std::snprintf(digits, sizeof digits, "\\%03o",
                      static_cast<unsigned>(static_cast<unsigned char>(bytes[i])));
        literal += digits;
        literal += i % 32 == 31 || i + 1 == bytes.size() ? "\"" : "";
    }
    return literal;
}

std::string Source(const std::string& path, const Options& options)
{
    const std::string bytes = Compile(path, options);
    TMemoryStream input;
    TMemoryStream text;
    ObjectBinaryToText(&Filled(input, bytes), &text);
    const std::string name = ClassOf(text.AsView());
    std::string source = "// Made from a form by trs8_btl_form; changes are lost.\n"
                         "#include <cstddef>\n\n"
                         "namespace Classes::Detail\n{\n"
                         "void RegisterForm(const char* className, const void* bytes, std::size_t size);\n"
                         "void UnregisterForm(const char* className, const void* bytes, std::size_t size);\n"
                         "} // namespace Classes::Detail\n\n"
                         "namespace\n{\n\n"
                         "const char Bytes[] =";
    source += Literal(bytes) + ";\n\n";
    const std::string arguments = "(\"" + name + "\", Bytes, sizeof Bytes - 1);";
    source +=
        "// Functions that run as the module comes and goes need no object, and so no destructor at exit.\n"
        "__attribute__((constructor)) void Register()\n{\n    Classes::Detail::RegisterForm" +
        arguments +
        "\n}\n\n"
        "__attribute__((destructor)) void Unregister()\n{\n    Classes::Detail::UnregisterForm" +
        arguments + "\n}\n\n} // namespace\n";
    if (!options.symbol.empty()) {
        source += "\n// By this name a linker takes the form from a static library.\n"
                  "extern \"C\" __attribute__((visibility(\"hidden\"))) const char " +
                  options.symbol + "[] = \"" + name + "\";\n";
    }
    return source;
}

int Run(const Options& options)
{
    if (options.command == "check") {
        bool isRight = true;
        for (const std::string& path : options.files) {
            isRight = Check(path, ReadFile(path), options.classes) && isRight;
        }
        return isRight ? 0 : 1;
    }
    if (options.files.size() > 1) {
        throw BadCall("one file at a time");
    }
    const std::string& path = options.files.front();
    if (options.command == "text") {
        const std::string text = Decompile(path);
        if (options.out.empty()) {
            std::cout << text << std::flush;
        } else {
            WriteFile(options.out, text);
        }
        return 0;
    }
    const bool isSource = options.command == "source";
    if (!isSource && options.command != "compile") {
        throw BadCall("unknown command " + options.command);
    }
    if (options.out.empty()) {
        throw BadCall("-o OUT is missing");
    }
    WriteFile(options.out, isSource ? Source(path, options) : Compile(path, options));
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 2 && std::string_view(arguments[1]) == "--help") {
        std::cout << Usage;
        return 0;
    }
    try {
        return Run(ParseOptions({arguments + 1, arguments + count}));
    } catch (const Faulty&) {
        return 1;
    } catch (const BadCall& fault) {
        std::cerr << "trs8_btl_form: " << fault.what() << "\n\n" << Usage;
        return 2;
    } catch (const std::exception& fault) {
        std::cerr << "trs8_btl_form: " << fault.what() << '\n';
        return 1;
    }
}
