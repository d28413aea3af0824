// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_classtable.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using Pasu_classtable::GetFieldClass;
using Pasu_classtable::GetFieldClassTable;
using System::ClassOf;

/// A class of edits with the name of the library's.
class TEdit : public Stdctrls::TEdit
{
    TRS8_BTL_CLASS(TEdit, Stdctrls::TEdit)

public:
    using Stdctrls::TEdit::TEdit;
};

System::TMetaClass* TEdit::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TEdit>(u"TEdit").Build();
    return record;
}

class TTableForm : public TBenchForm
{
    TRS8_BTL_CLASS(TTableForm, TBenchForm)

public:
    TEdit* First = nullptr;
    Stdctrls::TLabel* Label = nullptr;
    TEdit* Second = nullptr;
};

System::TMetaClass* TTableForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TTableForm>(u"TTableForm")
                                                  .Field(u"First", &TTableForm::First)
                                                  .Field(u"Label", &TTableForm::Label)
                                                  .Field(u"Second", &TTableForm::Second)
                                                  .Build();
    return record;
}

using CTable = std::vector<System::TMetaClass*>;

TEST(PasuClassTableTest, HasEachClassOfTheClassItselfOnce)
{
    EXPECT_EQ(GetFieldClassTable(ClassOf<TTableForm>()),
              (CTable{ClassOf<TEdit>(), ClassOf<Stdctrls::TLabel>()}));
    EXPECT_EQ(GetFieldClassTable(ClassOf<TBenchForm>()), CTable{ClassOf<Stdctrls::TButton>()});
    EXPECT_EQ(GetFieldClassTable(nullptr), CTable());
}

TEST(PasuClassTableTest, TheNearestClassOfANameIsFound)
{
    EXPECT_EQ(GetFieldClass(ClassOf<TTableForm>(), u"tedit"), ClassOf<TEdit>());
    EXPECT_EQ(GetFieldClass(ClassOf<TTableForm>(), u"TBUTTON"), ClassOf<Stdctrls::TButton>())
        << "of the parent's field";
    EXPECT_EQ(GetFieldClass(ClassOf<TBenchForm>(), u"TEdit"), ClassOf<Stdctrls::TEdit>()) << "registered";
    EXPECT_EQ(GetFieldClass(nullptr, u"TEdit"), ClassOf<Stdctrls::TEdit>());
    EXPECT_EQ(GetFieldClass(ClassOf<TTableForm>(), u"TNowhere"), nullptr);
}

} // namespace
