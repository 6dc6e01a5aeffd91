#include "data/class_def.h"

#include <cstring>

#include <gtest/gtest.h>

#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"
#include "data/type_list.h"

namespace quorvel {
namespace {

template <class Member, class... Arguments>
Member* Add(ClassDef& type, Arguments&&... arguments) {
  auto member = std::make_unique<Member>(std::forward<Arguments>(arguments)...);
  return static_cast<Member*>(type.AddMember(std::move(member)));
}

std::string ValueText(const MemberDef& member, ClassInstance instance) {
  std::string text = "untouched";
  member.FormatValue(text, member.GetValuePtr(instance));
  return text;
}

TEST(ClassDef, InstancesEndOnce) {
  ClassDef type("Cell");
  Add<IntMember>(type, "a");
  const ClassInstance first = type.CreateInstance();
  const ClassInstance second = type.CreateInstance();
  EXPECT_TRUE(type.DestroyInstance(first));
  EXPECT_FALSE(type.DestroyInstance(first));
  EXPECT_FALSE(type.DestroyInstance(ClassInstance::None));
  EXPECT_FALSE(type.DestroyInstance(static_cast<ClassInstance>(99)));
  EXPECT_TRUE(type.IsLive(second));
  EXPECT_EQ(type.CountInstances(), 1U);
  EXPECT_EQ(type.CreateInstance(), first) << "a free block is used again";
}

TEST(ClassDef, EmptyClassesMakeNoInstances) {
  ClassDef empty("Empty");
  EXPECT_EQ(empty.CreateInstance(), ClassInstance::None);
  ClassDef holder("Holder");
  Add<ObjectMember>(holder, "o", &empty);
  Add<ObjectMember>(holder, "missing", nullptr);
  Add<ObjectMember>(holder, "self", &holder);
  EXPECT_EQ(holder.CreateInstance(), ClassInstance::None);
  EXPECT_EQ(holder.CreateInstances(3), ClassInstance::None);

  Add<IntMember>(empty, "now");
  EXPECT_NE(holder.CreateInstance(), ClassInstance::None) << "an embedded class that grew is seen";
  EXPECT_EQ(holder.Size(), 4);
}

TEST(ClassDef, ManyInstancesKeepTheirValuesApart) {
  ClassDef type("Cell");
  const auto* a = Add<IntMember>(type, "a", IntDefault{0, 0, -1});
  const auto* s = Add<StringMember>(type, "s", "x");
  constexpr std::uint32_t kCount = 20000;  // some chunks
  const ClassInstance first = type.CreateInstances(kCount);
  const auto at = [first](std::uint32_t i) {
    return static_cast<ClassInstance>(static_cast<std::uint32_t>(first) + i);
  };
  for (std::uint32_t i = 0; i < kCount; ++i) {
    if (i % 3 == 0) continue;
    a->SetValue(at(i), &i);
    s->StoreText(s->GetValuePtr(at(i)), std::to_string(i));
  }
  for (std::uint32_t i = 0; i < kCount; ++i) {
    ASSERT_EQ(ValueText(*a, at(i)), i % 3 == 0 ? "-1" : std::to_string(i));
    ASSERT_EQ(ValueText(*s, at(i)), i % 3 == 0 ? "x" : std::to_string(i));
  }
}

TEST(ClassDef, LiveBlocksFollowTheLayout) {
  ClassDef inner("Inner");
  Add<IntMember>(inner, "i", IntDefault{0, 0, 1});
  ClassDef type("Cell");
  const auto* a = Add<IntMember>(type, "a");
  Add<ObjectMember>(type, "o", &inner);
  const auto* b = Add<IntMember>(type, "b");
  const ClassInstance gone = type.CreateInstance();
  const ClassInstance kept = type.CreateInstance();
  constexpr std::int32_t seven = 7;
  a->SetValue(kept, &seven);
  b->SetValue(kept, &seven);
  type.DestroyInstance(gone);

  const auto* t = Add<StringMember>(inner, "t", "deep");
  const auto* c = Add<StringMember>(type, "c", "late");
  EXPECT_EQ(type.Size(), 20);
  EXPECT_EQ(ValueText(*a, kept), "7");
  EXPECT_EQ(ValueText(*b, kept), "7");
  EXPECT_EQ(ValueText(*c, kept), "late");
  std::int32_t embedded;
  std::memcpy(&embedded, type.Block(kept) + 4, sizeof embedded);
  EXPECT_EQ(embedded, 1);
  EXPECT_EQ(t->Text(type.Block(kept) + 8), "deep") << "an embedded text belongs to its own class";
  EXPECT_FALSE(type.IsLive(gone));
  EXPECT_EQ(ValueText(*c, type.CreateInstance()), "late");
}

TEST(ClassDef, SizesSaturateAndCyclesAreCut) {
  ClassDef self("Self");
  const auto* inside = Add<ObjectMember>(self, "again", &self);
  Add<IntMember>(self, "i", IntDefault{0, 0, 9});
  EXPECT_EQ(self.Size(), 4);
  EXPECT_EQ(inside->GetSize(), 0) << "the inner one holds nothing";
  ClassDef user("User");
  Add<ObjectMember>(user, "s", &self);
  EXPECT_NE(user.CreateInstance(), ClassInstance::None);
  EXPECT_EQ(user.Size(), 4);

  ClassDef one("One"), other("Other");
  Add<ObjectMember>(one, "o", &other);
  Add<IntMember>(one, "i");
  Add<ObjectMember>(other, "o", &one);
  Add<IntMember>(other, "i");
  for (ClassDef* type : {&one, &other}) EXPECT_NE(type->CreateInstance(), ClassInstance::None);
  EXPECT_EQ(one.Size(), 8);

  TypeList doubling;  // with 4 bytes at the bottom, and with none
  for (const bool bytes : {true, false}) {
    ClassDef* last = doubling.Add(std::make_unique<ClassDef>("0"));
    if (bytes) Add<IntMember>(*last, "i");
    for (int level = 0; level < 40; ++level) {
      ClassDef* next = doubling.Add(std::make_unique<ClassDef>("next"));
      Add<ObjectMember>(*next, "a", last);
      Add<ObjectMember>(*next, "b", last);
      last = next;
    }
    EXPECT_EQ(last->Size(), bytes ? ClassDef::kMaxSize : 0);
    EXPECT_EQ(last->CreateInstance(), ClassInstance::None);
    EXPECT_EQ(last->LayOut(), last->Size());
  }
}

TEST(ClassDef, ChainsOfClassesHaveNoLimit) {
  TypeList types;
  ClassDef* last = types.Add(std::make_unique<ClassDef>("0"));
  Add<IntMember>(*last, "i", IntDefault{0, 0, 77});
  for (int link = 0; link < 100000; ++link) {
    ClassDef* next = types.Add(std::make_unique<ClassDef>("next"));
    Add<ObjectMember>(*next, "o", last);
    last = next;
  }
  const ClassInstance instance = last->CreateInstance();
  ASSERT_EQ(last->Size(), 4);
  std::int32_t value;
  std::memcpy(&value, last->Block(instance), sizeof value);
  EXPECT_EQ(value, 77);
}

TEST(TypeList, FindsTheFirstOfASort) {
  TypeList types;
  ListDef* list = types.Add(std::make_unique<ListDef>("A"));
  ClassDef* first = types.Add(std::make_unique<ClassDef>("A"));
  types.Add(std::make_unique<ClassDef>("A"));
  EXPECT_EQ(types.FindList("A"), list);
  EXPECT_EQ(types.FindClass("A"), first);
  EXPECT_FALSE(types.FindClass("a"));
  first->SetName("B");
  EXPECT_EQ(types.FindClass("A"), types.Types()[2].get());
  EXPECT_EQ(types.FindClass("B"), first);
}

}  // namespace
}  // namespace quorvel
