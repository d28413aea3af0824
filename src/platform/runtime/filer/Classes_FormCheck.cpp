// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormCheck.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/filer/internal/Classes_FormChecker.h"
#include "platform/runtime/filer/internal/Classes_FormParser.h"

#include <optional>

namespace Classes
{

std::vector<TFormFault> CheckFormText(std::string_view text, TFormClasses classes)
{
    Form::CChecker checker(classes);
    Form::CParser parser(text, checker);
    checker.SetParser(parser, text);
    std::optional<TFormFault> last;
    try {
        parser.Parse();
    } catch (const EParserError& fault) {
        last = {fault.getLine(), fault.getColumn(), fault.getReason()};
    } catch (const Form::CChecker::TEnough&) {
        // There are more than anybody reads.
    }
    std::vector<TFormFault> faults = checker.TakeFaults();
    if (last) {
        faults.push_back(*last);
    }
    return faults;
}

} // namespace Classes
