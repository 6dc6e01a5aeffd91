#include "data/member_def.h"

#include <cstring>

#include <gtest/gtest.h>

#include "data/class_def.h"
#include "data/index_member.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"

namespace quorvel {
namespace {

/// A class with a member of every kind.
struct AllKinds {
  AllKinds() {
    for (const char* name : {"red", "green", "blue"}) list.AddItemName(name);
    for (const std::uint32_t value : {10U, 20U, 30U}) list.AddItemValue(value);
    inner.AddMember(std::make_unique<IntMember>("i"));
    s = type.AddMember(std::make_unique<StringMember>("s", "default"));
    i = type.AddMember(std::make_unique<IntMember>("i", IntDefault{0, 10, 5}));
    f = type.AddMember(std::make_unique<FloatMember>("f", FloatDefault{0, 1, 0.5F}));
    x = type.AddMember(std::make_unique<IndexMember>("x", &list, 1));
    o = type.AddMember(std::make_unique<ObjectMember>("o", &inner));
    instance = type.CreateInstance();
  }

  std::string Value(const MemberDef* member) const {
    std::string text = "untouched";
    member->FormatValue(text, member->GetValuePtr(instance));
    return text;
  }
  std::string ValueAfter(const MemberDef* member, std::string_view text) const {
    if (void* slot = member->GetValuePtr(instance)) member->StoreText(slot, text);
    return Value(member);
  }

  ListDef list{"Colours"};
  ClassDef inner{"Inner"}, type{"Cell"};
  MemberDef *s, *i, *f, *x, *o;
  ClassInstance instance;
};

TEST(MemberDef, TextsAreStoredByKind) {
  const AllKinds all;
  const std::tuple<MemberDef*, const char*, const char*> rows[] = {{all.s, "a text", "a text"},
                                                                   {all.s, "", ""},
                                                                   {all.i, " 42x", "42"},
                                                                   {all.i, "99999999999", "2147483647"},
                                                                   {all.f, "1e3", "1000.000000"},
                                                                   {all.f, "1e999", "inf"},
                                                                   {all.f, "-nan", "-nan"},
                                                                   {all.x, "2", "blue"},
                                                                   {all.x, "3", "<error>"},
                                                                   {all.x, "-1", "<error>"},
                                                                   {all.x, "2147483647", "<error>"},
                                                                   {all.o, "7", "<error>"}};
  for (const auto& [member, text, stored] : rows) EXPECT_EQ(all.ValueAfter(member, text), stored) << text;
  std::string text = "kept";
  for (const MemberDef* member : {all.s, all.i, all.f}) member->FormatValue(text, nullptr);
  EXPECT_EQ(text, "kept");
  all.o->FormatValue(text, all.type.Block(all.instance));
  EXPECT_EQ(text, "Inner");
}

TEST(MemberDef, SlotsCopyAndFallBackToTheDefault) {
  const AllKinds all;
  for (const MemberDef* member : {all.s, all.i, all.f, all.x}) {
    SCOPED_TRACE(member->GetName());
    const std::string initial = all.Value(member);
    std::uint32_t buffer = 0;
    EXPECT_EQ(member->ConstructValue(&buffer), 4);
    member->StoreText(&buffer, "2");
    member->SetValue(all.instance, &buffer);
    const std::string copied = all.Value(member);
    EXPECT_NE(copied, initial);
    member->StoreText(&buffer, "0");
    EXPECT_EQ(all.Value(member), copied) << "a copy stands for itself";
    member->SetValue(all.instance, nullptr);
    EXPECT_EQ(all.Value(member), initial);
    EXPECT_EQ(member->ConstructValue(nullptr), 0);
    EXPECT_EQ(member->DestroyValue(nullptr), 4);
    EXPECT_FALSE(member->GetValuePtr(ClassInstance::None));
  }
  const std::uint32_t nan = 0x7fa12345;  // a signalling NaN with a payload
  all.f->SetValue(all.instance, &nan);
  EXPECT_EQ(std::memcmp(all.f->GetValuePtr(all.instance), &nan, 4), 0);
}

TEST(MemberDef, DefaultsChangeByKindAndShowInNewInstances) {
  AllKinds all;
  const auto created = [&all](MemberDef* member, const MemberDefault& initial) {
    member->SetDefault(initial);
    all.instance = all.type.CreateInstance();
    return all.Value(member);
  };
  EXPECT_EQ(created(all.s, "other"), "other");
  EXPECT_EQ(created(all.s, IntDefault{1, 2, 3}), "other") << "a default of another kind changes nothing";
  EXPECT_EQ(created(all.s, {}), "other");
  EXPECT_EQ(created(all.i, IntDefault{1, 2, 3}), "3");
  EXPECT_EQ(created(all.f, FloatDefault{1, 2, 3}), "3.000000");
  EXPECT_EQ(created(all.x, IntDefault{7, 8, 2}), "blue");
  EXPECT_EQ(std::get<IntDefault>(all.x->GetDefault()), (IntDefault{0, 2, 2}));
  EXPECT_EQ(created(all.x, {}), "red");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(all.o->GetDefault()));

  IndexMember loose("x", nullptr, 5);
  loose.SetDefault(IntDefault{1, 2, 3});
  EXPECT_EQ(std::get<IntDefault>(loose.GetDefault()), (IntDefault{0, -1, 0}));
}

TEST(MemberDef, MappedValuesWrapAround) {
  const AllKinds all;
  for (const auto& [position, value] :  // -1 is 2^32 - 1
       {std::pair{"0", 10U}, {"2", 30U}, {"4", 20U}, {"-1", 10U}, {"2147483647", 20U}}) {
    all.ValueAfter(all.x, position);
    EXPECT_EQ(all.x->GetMappedValue(all.instance), value) << position;
  }
  EXPECT_EQ(all.i->GetMappedValue(all.instance), 0U);
  EXPECT_EQ(all.x->GetMappedValue(ClassInstance::None), 0U);
  EXPECT_EQ(ListDef("empty").GetItemValue(3), 0U);
}

}  // namespace
}  // namespace quorvel
