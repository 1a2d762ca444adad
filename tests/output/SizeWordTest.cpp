// SPDX-License-Identifier: MIT
// Every size word equals the bytes that follow it, over all combinations of what sizes depend on.
#include <vaultry/output/Mod.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <tests/output/PluginBytes.h>
#include <tests/support/LogTest.h>
#include <tuple>
#include <vector>

namespace Tarnex::Test {

namespace {

using ::testing::Combine;
using ::testing::ValuesIn;

constexpr std::array kLengths = {0U, 1U, 31U, 32U, 255U};
constexpr std::array kScales = {1.0F, 0.5F};
constexpr std::array kCounts = {0U, 1U, 2U};
// The length of the name of the destination; none at all without a destination.
constexpr std::array<std::optional<unsigned>, 6> kDestinations = {
    std::nullopt, 0U, 1U, 31U, 32U, 255U};

struct RefShape {
    unsigned length;
    float scale;
    std::optional<unsigned> destination;
};

std::vector<RefShape> RefShapes() {
    std::vector<RefShape> shapes;
    for (const unsigned length : kLengths) {
        for (const float scale : kScales) {
            for (const std::optional<unsigned>& destination : kDestinations) {
                shapes.push_back({length, scale, destination});
            }
        }
    }
    return shapes;
}

void PrintTo(const RefShape& shape, std::ostream* stream) {
    *stream << "name " << shape.length << ", scale " << shape.scale << ", destination "
            << ::testing::PrintToString(shape.destination);
}

std::string Name(unsigned length) {
    return std::string(length, 'n');
}

Ref MakeRef(const RefShape& shape) {
    Ref ref(Name(shape.length).c_str());
    ref.scale = shape.scale;
    ref.position = Di3Point(1.0F, 2.0F, 3.0F);
    if (shape.destination) {
        ref.Teleport(Ref(Name(*shape.destination).c_str()));
    }
    return ref;
}

// The one record that an element writes; its size word, and that of each sub-record, is checked
// against the bytes.
template <typename T>
Record ExpectOneRecord(T& element) {
    const std::string bytes = Written(element);
    std::vector<Record> records = WalkRecords(bytes);
    if (records.size() != 1) {
        ADD_FAILURE() << records.size() << " records instead of one";
        return {};
    }
    EXPECT_EQ(records[0].size, bytes.size() - 16);
    EXPECT_EQ(records[0].reserved, Zeros(8));
    EXPECT_EQ(element.GetRecordSize(), bytes.size() - 16);
    element.UpdateSize();
    EXPECT_EQ(element.GetRecordSize(), bytes.size() - 16);
    return records[0];
}

class HeaderSizes : public LogTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(HeaderSizes, FitTheBytes) {
    FileHeader header;
    header.SetMasterFile(Name(GetParam()).c_str(), 1);
    const Record record = ExpectOneRecord(header);
    ASSERT_EQ(Tags(record.subs), "HEDR MAST DATA");
    EXPECT_EQ(record.subs[0].data.size(), 300U);
    // Without a name it is that of the game's own master.
    EXPECT_EQ(record.subs[1].data.size(), GetParam() == 0 ? 14U : GetParam() + 1);
    EXPECT_EQ(record.subs[2].data.size(), 8U);
    EXPECT_TRUE(ErrorLines().empty());
}

INSTANTIATE_TEST_SUITE_P(AllNames, HeaderSizes, ValuesIn(kLengths));

class RefSizes : public LogTest, public ::testing::WithParamInterface<RefShape> {};

TEST_P(RefSizes, FitTheBytes) {
    const auto& [length, scale, destination] = GetParam();
    Ref ref = MakeRef(GetParam());
    const std::string bytes = Written(ref);
    EXPECT_EQ(ref.GetTotalSize(), bytes.size());
    std::string expected = "FRMR NAME";
    expected += scale == 1.0F ? "" : " XSCL";
    expected += destination ? " DODT" : "";
    expected += destination.value_or(0) > 0 ? " DNAM" : "";
    expected += " DATA";
    const std::vector<SubRecord> subs = WalkSubRecords(bytes);
    EXPECT_EQ(Tags(subs), expected);
    EXPECT_EQ(subs.at(1).data.size(), length + 1);
    EXPECT_TRUE(ErrorLines().empty());
}

INSTANTIATE_TEST_SUITE_P(AllShapes, RefSizes, ValuesIn(RefShapes()));

class CellSizes : public LogTest,
                  public ::testing::WithParamInterface<std::tuple<unsigned, unsigned>> {};

TEST_P(CellSizes, FitTheBytes) {
    const auto& [length, refs] = GetParam();
    for (const RefShape& shape : RefShapes()) {
        SCOPED_TRACE(::testing::PrintToString(shape));
        Cell cell(Name(length).c_str());
        for (unsigned i = 0; i < refs; ++i) {
            cell.AddRef(MakeRef(shape));
        }
        const Record record = ExpectOneRecord(cell);
        ASSERT_FALSE(record.subs.empty());
        EXPECT_EQ(record.subs[0].data.size(), length + 1);
        const auto numbered = std::count_if(record.subs.begin(),
                                            record.subs.end(),
                                            [](const SubRecord& sub) { return sub.tag == "FRMR"; });
        EXPECT_EQ(numbered, static_cast<std::ptrdiff_t>(refs));
    }
    EXPECT_TRUE(ErrorLines().empty());
}

INSTANTIATE_TEST_SUITE_P(AllShapes, CellSizes, Combine(ValuesIn(kLengths), ValuesIn(kCounts)));

class ContainerSizes : public LogTest,
                       public ::testing::WithParamInterface<std::tuple<unsigned, unsigned>> {
protected:
    static Container MakeContainer(unsigned id, unsigned friendlyName, unsigned model) {
        const auto& [items, itemLength] = GetParam();
        Container container;
        container.SetId(Name(id).c_str());
        container.SetFriendlyName(Name(friendlyName).c_str());
        container.SetModelName(Name(model).c_str());
        for (unsigned i = 0; i < items; ++i) {
            container.Add(Name(itemLength).c_str(), i);
        }
        return container;
    }

    static void ExpectFit(unsigned id, unsigned friendlyName, unsigned model) {
        Container container = MakeContainer(id, friendlyName, model);
        const Record record = ExpectOneRecord(container);
        ASSERT_EQ(record.subs.size(), 5U + std::get<0>(GetParam()));
        EXPECT_EQ(record.subs[0].data.size(), id + 1);
        EXPECT_EQ(record.subs[1].data.size(), model + 1);
        EXPECT_EQ(record.subs[2].data.size(), friendlyName + 1);
        for (std::size_t i = 5; i < record.subs.size(); ++i) {
            EXPECT_EQ(record.subs[i].data.size(), 36U);
        }
    }
};

TEST_P(ContainerSizes, FitTheBytes) {
    for (const unsigned id : kLengths) {
        for (const unsigned friendlyName : kLengths) {
            for (const unsigned model : kLengths) {
                SCOPED_TRACE(::testing::Message() << id << ", " << friendlyName << ", " << model);
                ExpectFit(id, friendlyName, model);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllShapes, ContainerSizes, Combine(ValuesIn(kCounts), ValuesIn(kLengths)));

// Which of the three names were set at all.
class UnnamedContainerSizes : public LogTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(UnnamedContainerSizes, FitTheBytes) {
    Container container;
    if ((GetParam() & 1U) != 0) {
        container.SetId("id");
    }
    if ((GetParam() & 2U) != 0) {
        container.SetModelName("model");
    }
    if ((GetParam() & 4U) != 0) {
        container.SetFriendlyName("name");
    }
    const Record record = ExpectOneRecord(container);
    ASSERT_EQ(Tags(record.subs), "NAME MODL FNAM CNDT FLAG");
    EXPECT_EQ(record.subs[0].data.size(), (GetParam() & 1U) != 0 ? 3U : 0U);
    EXPECT_EQ(record.subs[1].data.size(), (GetParam() & 2U) != 0 ? 6U : 0U);
    EXPECT_EQ(record.subs[2].data.size(), (GetParam() & 4U) != 0 ? 5U : 0U);
}

INSTANTIATE_TEST_SUITE_P(AllShapes, UnnamedContainerSizes, ::testing::Range(0U, 8U));

} // namespace

} // namespace Tarnex::Test
