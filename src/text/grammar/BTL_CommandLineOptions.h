// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <vector>

namespace BTL
{

/// A command line that the options of a program refuse. The message names the option and its value.
class TRS8_BTL_API XCommandLine : public Sysutils::Exception
{
public:
    using Exception::Exception;
};

/// All that is known of an option.
struct TCommandLineOption
{
    /// As the user writes it, "--seconds".
    System::UnicodeString name;
    /// What the help calls the value, "N"; empty for a switch, which takes none.
    System::UnicodeString valueName;
    System::UnicodeString help;
    /// Another way to write the name, usually the short one, "-s"; empty for an option without.
    System::UnicodeString shortName = {};

    /// Whether a value follows the name; a switch takes none.
    bool TakesValue() const noexcept { return !valueName.IsEmpty(); }
};

/// What to do with words that belong to no option.
enum class EOtherWords
{
    /// They are kept for the program; but one that begins with `-` must be an option, unless it is `-` alone
    /// or a number, or stands behind the word `--`.
    Kept,
    /// They are faults.
    Refused
};

/// The options of a program: reads its command line, refuses what it doesn't know and writes the help.
///
///     BTL::CCommandLineOptions options = {{u"--seconds", u"N", u"how long to sample; default 5", u"-s"},
///                                         {u"--sql", u"", u"print for SQL"}};
///     options.Parse(argc, argv); // `XCommandLine`: "unknown option '--colour'"
///     const double seconds = options.GetDouble(u"--seconds", 5);
///     for (const UnicodeString& file : options.getWords()) { ... }
///     std::cout << options.GetHelpText();
///
/// A value is the word behind its option or what stands behind a `=` in the same word; it may begin with `-`,
/// but isn't one of the options. An option may be given several times, by either of its names, and the
/// program asks for it by either. Short names are words like others: "-s 5" or "-s=5", but neither "-s5" nor
/// several in one word. Case matters.
///
/// To ask for an option that the table lacks is an internal fault, which names it, and counts as one that
/// isn't given if the user lets it pass.
class TRS8_BTL_API CCommandLineOptions
{
public:
    explicit CCommandLineOptions(EOtherWords otherWords = EOtherWords::Kept) : mOtherWords(otherWords) {}
    CCommandLineOptions(std::initializer_list<TCommandLineOption> options,
                        EOtherWords otherWords = EOtherWords::Kept);

    /// Adds a row to the table. A row before it that has its name, or its short name, hides that.
    void Add(const TCommandLineOption& option);
    std::span<const TCommandLineOption> getOptions() const noexcept { return mOptions; }

    /// Reads the words that `main` gets, in UTF-8, without the program's name, in place of all that was read
    /// before. `XCommandLine` for an option that is unknown, lacks its value or takes none; what was read
    /// before is then lost. Bytes that are no UTF-8 stay as in the paths of `Sysutils::FromHostPath`, so that
    /// a file of such a name can be opened; a `\` in a word separates folders, as in every path.
    void Parse(int argc, const char* const* argv);
    void Parse(std::span<const System::UnicodeString> words);
    void Parse(std::initializer_list<System::UnicodeString> words)
    {
        Parse(std::span<const System::UnicodeString>(words.begin(), words.size()));
    }

    /// Whether the option was given.
    bool Contains(const System::UnicodeString& name) const { return !GetValues(name).empty(); }
    /// All values of the option, in their order; of a switch an empty text each time that it is given.
    const std::vector<System::UnicodeString>& GetValues(const System::UnicodeString& name) const;

    // The last value of the option, or the default if it isn't given. `XCommandLine` for a text that is no
    // such number.

    System::UnicodeString GetString(const System::UnicodeString& name,
                                    const System::UnicodeString& defaultValue = {}) const;
    int GetInt(const System::UnicodeString& name, int defaultValue) const;
    double GetDouble(const System::UnicodeString& name, double defaultValue) const;

    /// The words that belong to no option.
    const std::vector<System::UnicodeString>& getWords() const noexcept { return mWords; }

    /// A line for each option: its names, the short one first, and that of its value, and behind them, one
    /// below the other, the help.
    System::UnicodeString GetHelpText() const;

private:
    /// The place of the option in the table; its size if it lacks it.
    std::size_t IndexOf(const System::UnicodeString& name) const;
    /// Whether `word` is an option, alone or with a value.
    bool IsOption(const System::UnicodeString& word) const;
    bool EndsOptions(const System::UnicodeString& word) const;
    /// Takes the first word, with a value that stands behind it. Gives how many words that are.
    std::size_t Take(std::span<const System::UnicodeString> words);
    void TakeOther(const System::UnicodeString& word);

    EOtherWords mOtherWords;
    std::vector<TCommandLineOption> mOptions;
    /// The values of each option.
    std::vector<std::vector<System::UnicodeString>> mValues;
    std::vector<System::UnicodeString> mWords;
};

} // namespace BTL
