// SPDX-License-Identifier: MIT
#include <vaultry/output/Ref.h>

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

Ref PlaceNamed(const char* cell) {
    Ref place(cell);
    place.position = Di3Point(512.0F, -256.0F, 0.0F);
    place.rotation = Di3Point(0.0F, 0.0F, 1.0F);
    return place;
}

// 512, -256, 0 and the rotation 0, 0, 1.
std::string PlaceBytes() {
    return Hex("00 00 00 44  00 00 80 C3  00 00 00 00  00 00 00 00  00 00 00 00  00 00 80 3F");
}

TEST(RefTest, IsWrittenWithItsDefaults) {
    Ref ref("crate");
    EXPECT_EQ(Written(ref),
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +              //
                  "NAME" + Hex("06 00 00 00") + "crate" + Zeros(1) + //
                  "DATA" + Hex("18 00 00 00") + Zeros(24));
}

TEST(RefTest, StartsUnscaledAtTheOriginWithoutADestination) {
    const Ref ref("crate");
    EXPECT_EQ(ref.GetName(), "crate");
    EXPECT_EQ(ref.scale, 1.0F);
    EXPECT_EQ(ref.position, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(ref.rotation, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_FALSE(ref.GetDestination());
}

TEST(RefTest, WritesIndexPositionAndRotation) {
    Ref ref("a");
    ref.SetIndex(258);
    ref.position = Di3Point(1.0F, -2.0F, 0.5F);
    ref.rotation = Di3Point(-0.0F, 0.25F, 3.0F);
    EXPECT_EQ(Written(ref),
              "FRMR" + Hex("04 00 00 00 02 01 00 00") +          //
                  "NAME" + Hex("02 00 00 00") + "a" + Zeros(1) + //
                  "DATA" + Hex("18 00 00 00") +                  //
                  Hex("00 00 80 3F  00 00 00 C0  00 00 00 3F") + //
                  Hex("00 00 00 80  00 00 80 3E  00 00 40 40"));
}

TEST(RefTest, WhatIsNoNumberIsWrittenAlikeWhateverItsSignAndBits) {
    Ref ref("a");
    ref.position = Di3Point(std::nanf(""), -std::nanf(""), std::nanf("0x1234"));
    EXPECT_EQ(Written(ref),
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +          //
                  "NAME" + Hex("02 00 00 00") + "a" + Zeros(1) + //
                  "DATA" + Hex("18 00 00 00") +                  //
                  Hex("00 00 C0 FF  00 00 C0 FF  00 00 C0 FF") + Zeros(12));
}

TEST(RefTest, AScaleOtherThan1IsWritten) {
    Ref ref("a");
    ref.scale = 0.5F;
    EXPECT_EQ(Written(ref),
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +          //
                  "NAME" + Hex("02 00 00 00") + "a" + Zeros(1) + //
                  "XSCL" + Hex("04 00 00 00 00 00 00 3F") +      //
                  "DATA" + Hex("18 00 00 00") + Zeros(24));
}

RefLock LockOf(std::optional<std::int32_t> level, const char* key, const char* trap) {
    RefLock lock;
    lock.level = level;
    lock.key = key;
    lock.trap = trap;
    return lock;
}

TEST(RefTest, ALockIsWrittenBehindTheDestination) {
    Ref door("a");
    door.Teleport(PlaceNamed("B"));
    door.Lock(LockOf(35, "key", "trap"));
    const std::string bytes = Written(door);
    EXPECT_EQ(bytes,
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +             //
                  "NAME" + Hex("02 00 00 00") + "a" + Zeros(1) +    //
                  "DODT" + Hex("18 00 00 00") + PlaceBytes() +      //
                  "DNAM" + Hex("02 00 00 00") + "B" + Zeros(1) +    //
                  "FLTV" + Hex("04 00 00 00 23 00 00 00") +         //
                  "KNAM" + Hex("04 00 00 00") + "key" + Zeros(1) +  //
                  "TNAM" + Hex("05 00 00 00") + "trap" + Zeros(1) + //
                  "DATA" + Hex("18 00 00 00") + Zeros(24));
    EXPECT_EQ(door.GetTotalSize(), bytes.size());
}

TEST(RefTest, OfALockOnlyWhatItSaysIsWritten) {
    const auto tags = [](const RefLock& lock) {
        Ref ref("a");
        ref.Lock(lock);
        const std::string bytes = Written(ref);
        EXPECT_EQ(ref.GetTotalSize(), bytes.size());
        return Tags(WalkSubRecords(bytes));
    };
    EXPECT_EQ(tags(LockOf(0, "", "")), "FRMR NAME FLTV DATA");
    EXPECT_EQ(tags(LockOf(std::nullopt, "", "trap")), "FRMR NAME TNAM DATA");
    EXPECT_EQ(tags(LockOf(100, "", "")), "FRMR NAME FLTV DATA");
    EXPECT_EQ(tags(LockOf(std::nullopt, "", "")), "FRMR NAME DATA");
}

TEST(RefTest, ALockIsTheReferencesOwn) {
    RefLock lock = LockOf(10, "", "");
    Ref ref("a");
    EXPECT_FALSE(ref.GetLock());
    ref.Lock(lock);
    lock.level = 20;
    EXPECT_EQ(ref.GetLock()->level, 10);
    ref.Lock(lock);
    EXPECT_EQ(ref.GetLock()->level, 20);
}

TEST(RefTest, TheScaleIsLeftOutOnlyWhenItIsExactly1) {
    Ref ref("a");
    ref.scale = std::nextafter(1.0F, 2.0F);
    EXPECT_EQ(Tags(WalkSubRecords(Written(ref))), "FRMR NAME XSCL DATA");
    ref.scale = 0.0F;
    EXPECT_EQ(Tags(WalkSubRecords(Written(ref))), "FRMR NAME XSCL DATA");
    ref.scale = -1.0F;
    EXPECT_EQ(Tags(WalkSubRecords(Written(ref))), "FRMR NAME XSCL DATA");
    ref.scale = 1.0F;
    EXPECT_EQ(Tags(WalkSubRecords(Written(ref))), "FRMR NAME DATA");
}

TEST(RefTest, ADoorWritesWhereItLeads) {
    Ref door("door");
    door.scale = 2.0F;
    door.Teleport(PlaceNamed("Crypt"));
    EXPECT_EQ(Written(door),
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +              //
                  "NAME" + Hex("05 00 00 00") + "door" + Zeros(1) +  //
                  "XSCL" + Hex("04 00 00 00 00 00 00 40") +          //
                  "DODT" + Hex("18 00 00 00") + PlaceBytes() +       //
                  "DNAM" + Hex("06 00 00 00") + "Crypt" + Zeros(1) + //
                  "DATA" + Hex("18 00 00 00") + Zeros(24));
}

TEST(RefTest, ADoorToTheOutsideNamesNoCell) {
    Ref door("door");
    door.Teleport(PlaceNamed(""));
    EXPECT_EQ(Written(door),
              "FRMR" + Hex("04 00 00 00 00 00 00 00") +             //
                  "NAME" + Hex("05 00 00 00") + "door" + Zeros(1) + //
                  "DODT" + Hex("18 00 00 00") + PlaceBytes() +      //
                  "DATA" + Hex("18 00 00 00") + Zeros(24));
}

TEST(RefTest, ANameOf12CharactersMakes65Bytes) {
    Ref ref("twelve_chars");
    EXPECT_EQ(ref.GetTotalSize(), 65U);
    ref.scale = 0.5F;
    EXPECT_EQ(ref.GetTotalSize(), 77U);
    ref.scale = 1.0F;
    ref.Teleport(Ref("seven_c"));
    EXPECT_EQ(ref.GetTotalSize(), 65U + 48U);
    ref.scale = 0.5F;
    EXPECT_EQ(ref.GetTotalSize(), 77U + 48U);
}

TEST(RefTest, AnUnnamedDestinationAdds32Bytes) {
    Ref ref("twelve_chars");
    ref.Teleport(Ref(""));
    EXPECT_EQ(ref.GetTotalSize(), 65U + 32U);
}

TEST(RefTest, TheSizeFollowsTheName) {
    Ref ref("");
    EXPECT_EQ(ref.GetTotalSize(), 53U);
    ref.SetName("twelve_chars");
    EXPECT_EQ(ref.GetName(), "twelve_chars");
    EXPECT_EQ(ref.GetTotalSize(), 65U);
    ref.SetName("a");
    EXPECT_EQ(ref.GetTotalSize(), 54U);
}

TEST(RefTest, TeleportKeepsACopyOfThePlace) {
    Ref door("door");
    Ref place = PlaceNamed("Crypt");
    door.Teleport(place);
    place.SetName("Elsewhere");
    place.position = Di3Point();
    ASSERT_TRUE(door.GetDestination());
    EXPECT_EQ(door.GetDestination()->GetName(), "Crypt");
    EXPECT_EQ(door.GetDestination()->position, Di3Point(512.0F, -256.0F, 0.0F));
}

TEST(RefTest, TeleportReleasesAnEarlierDestination) {
    Ref door("door");
    door.Teleport(PlaceNamed("First"));
    const DiPtr<Ref> first = door.GetDestination();
    EXPECT_TRUE(first->isShared());
    door.Teleport(PlaceNamed("Second"));
    EXPECT_FALSE(first->isShared());
    EXPECT_EQ(door.GetDestination()->GetName(), "Second");
}

TEST(RefTest, ADoorCanLeadToItself) {
    Ref door = PlaceNamed("door");
    door.Teleport(door);
    EXPECT_EQ(door.GetDestination()->GetName(), "door");
    EXPECT_FALSE(door.GetDestination()->GetDestination());
    door.Teleport(*door.GetDestination());
    EXPECT_EQ(door.GetDestination()->GetName(), "door");
}

TEST(RefTest, CopiesShareTheDestination) {
    Ref door("door");
    door.SetIndex(9);
    door.scale = 0.75F;
    door.position = Di3Point(1.0F, 2.0F, 3.0F);
    door.rotation = Di3Point(4.0F, 5.0F, 6.0F);
    door.Teleport(PlaceNamed("Crypt"));
    Ref copy(door);
    EXPECT_EQ(copy.GetDestination(), door.GetDestination());
    EXPECT_EQ(Written(copy), Written(door));
    Ref target("other");
    target = door;
    EXPECT_EQ(target.GetDestination(), door.GetDestination());
    EXPECT_EQ(Written(target), Written(door));
}

TEST(RefTest, ScaleAndIndexOfTheDestinationAreNotWritten) {
    Ref plain = PlaceNamed("Crypt");
    Ref scaled = PlaceNamed("Crypt");
    scaled.scale = 0.5F;
    scaled.SetIndex(5);
    Ref first("door");
    first.Teleport(plain);
    Ref second("door");
    second.Teleport(scaled);
    EXPECT_EQ(Written(first), Written(second));
}

} // namespace

} // namespace Tarnex::Test
