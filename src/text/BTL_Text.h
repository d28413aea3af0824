// SPDX-License-Identifier: MIT
#pragma once

// All of the text subsystem at once: what works on text and what is written as text.

#include "text/bytes/BTL_BIN_BinaryData.h"         // bytes as hexadecimal text
#include "text/bytes/BTL_CRYPT_Crypt.h"            // scrambled texts
#include "text/dates/BTL_DT_Utilities.h"           // dates: reckoning, reading, writing
#include "text/editing/BTL_STR_Cut.h"              // cutting at the ends
#include "text/editing/BTL_STR_Join.h"             // joining and padding
#include "text/editing/BTL_STR_LoadSPrintf.h"      // texts of the `printf` family
#include "text/editing/BTL_STR_Replace.h"          // deleting and replacing
#include "text/editing/BTL_STR_Search.h"           // searching
#include "text/editing/BTL_STR_Split.h"            // taking apart at delimiters
#include "text/editing/BTL_STR_String.h"           // strings as values that streams keep
#include "text/editing/BTL_STR_StringBuilder.h"    // building by appending
#include "text/editing/BTL_STR_StringTypeInfo.h"   // what a string type is
#include "text/editing/BTL_STR_TextPlace.h"        // line and column of a position
#include "text/grammar/BTL_CommandLineOptions.h"   // known options of a program, with their help
#include "text/grammar/BTL_CommandLineParser.h"    // any command line
#include "text/grammar/BTL_RTF_Plain.h"            // RTF as plain text
#include "text/grammar/BTL_SQL_Text.h"             // tokens and literals of SQL
#include "text/grammar/BTL_STR_Command.h"          // commands with arguments
#include "text/grammar/BTL_STR_Delimited.h"        // quoted items between delimiters
#include "text/grammar/BTL_STR_Escape.h"           // escapes
#include "text/grammar/BTL_STR_EscapeText.h"       // any text in one line, and back
#include "text/grammar/BTL_STR_Ident.h"            // identifiers
#include "text/grammar/BTL_STR_Macro.h"            // macros
#include "text/lists/BTL_STR_I64StrMap.h"          // texts by number
#include "text/lists/BTL_STR_IntSet.h"             // sets of integers
#include "text/lists/BTL_STR_StrSet.h"             // a set in the order of the user's language
#include "text/lists/BTL_STR_StrStrMap.h"          // texts by text
#include "text/lists/BTL_STR_StringIdPairList.h"   // lines with ids
#include "text/lists/BTL_STR_StringInt32Map.h"     // integers by text
#include "text/lists/BTL_STR_StringList.h"         // string lists as values
#include "text/lists/BTL_STR_StringLists.h"        // lists of lists
#include "text/lists/BTL_STR_StringPairs.h"        // pairs of texts
#include "text/lists/BTL_STR_StringSet.h"          // a set in the order of the characters
#include "text/lists/BTL_STR_StringsUpdate.h"      // a scope for many changes
#include "text/numbers/BTL_NUM_Limits.h"           // measured values and their limits
#include "text/numbers/BTL_NUM_Numbers.h"          // numbers from text
#include "text/numbers/BTL_NUM_Units.h"            // units and their prefixes
#include "text/numbers/BTL_NUM_Variants.h"         // the variant that fits a text
#include "text/numbers/BTL_NUM_Version.h"          // version numbers
#include "text/variants/BTL_VARI_CVariants.h"      // vectors of variants
#include "text/variants/BTL_VARI_Maps.h"           // variants by key
#include "text/variants/BTL_VARI_NameValuePairs.h" // variants by name, for SQL
#include "text/variants/BTL_VARI_StrVariant.h"     // text that converts like a variant
#include "text/variants/BTL_VARI_Utilities.h"      // conversions and comparisons of variants
