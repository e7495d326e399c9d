// CVector: every operation with in-range and out-of-range arguments.
#include <windows.h>

#include <climits>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <vector>

namespace {

std::vector<int> Values(const CVector &vector)
{
    std::vector<int> values;
    for (UINT i = 0; i < vector.Size(); ++i) {
        int value = 0;
        EXPECT_TRUE(vector.Get(i, &value));
        values.push_back(value);
    }
    return values;
}

CVector *IntsFrom(std::initializer_list<int> values)
{
    CVector *vector = new CVector(sizeof(int));
    for (int value : values)
        EXPECT_TRUE(vector->Append(&value));
    return vector;
}

} // namespace

TEST(CVector, GetSetAndRemoveInAndOutOfRange)
{
    std::unique_ptr<CVector> vector(IntsFrom({1, 2, 3}));
    int value = 77;
    EXPECT_FALSE(vector->Get(3, &value));
    EXPECT_FALSE(vector->Get(UINT_MAX, &value));
    EXPECT_EQ(value, 77);
    EXPECT_FALSE(vector->Get(0, nullptr));
    EXPECT_FALSE(vector->Set(3, &value));
    EXPECT_FALSE(vector->Set(0, nullptr));
    EXPECT_TRUE(vector->Set(2, &value));
    EXPECT_EQ(Values(*vector), (std::vector<int>{1, 2, 77}));
    CVector empty(sizeof(int));
    EXPECT_FALSE(empty.Get(0, &value));

    std::unique_ptr<CVector> ranges(IntsFrom({0, 1, 2, 3, 4, 5}));
    EXPECT_TRUE(ranges->Remove(1));
    EXPECT_EQ(Values(*ranges), (std::vector<int>{0, 2, 3, 4, 5}));
    EXPECT_TRUE(ranges->Remove(1, 3));
    EXPECT_EQ(Values(*ranges), (std::vector<int>{0, 5}));
    EXPECT_FALSE(ranges->Remove(2));
    EXPECT_FALSE(ranges->Remove(1, 2));
    EXPECT_FALSE(ranges->Remove(1, UINT_MAX)) << "index + count overflows";
    EXPECT_FALSE(ranges->Remove(UINT_MAX, 2));
    EXPECT_TRUE(ranges->Remove(2, 0)) << "nothing at the end";
    EXPECT_TRUE(ranges->Remove(0, 2));
    EXPECT_EQ(ranges->Size(), 0u);
    EXPECT_FALSE(ranges->Remove(0));
}

TEST(CVector, InsertAtEveryPositionAlsoFromItsOwnItems)
{
    std::unique_ptr<CVector> vector(IntsFrom({1, 2, 3}));
    int value = 10;
    EXPECT_TRUE(vector->Insert(0, &value));
    value = 20;
    EXPECT_TRUE(vector->Insert(2, &value));
    value = 30;
    EXPECT_TRUE(vector->Insert(vector->Size(), &value)) << "Size() appends";
    EXPECT_EQ(Values(*vector), (std::vector<int>{10, 1, 20, 2, 3, 30}));
    EXPECT_FALSE(vector->Insert(vector->Size() + 1, &value));
    EXPECT_FALSE(vector->Insert(UINT_MAX, &value));
    EXPECT_FALSE(vector->Insert(0, nullptr));
    EXPECT_EQ(vector->Size(), 6u);

    // Each append may move the storage while the source is inside it.
    std::unique_ptr<CVector> fives(IntsFrom({5}));
    for (int i = 0; i < 100; ++i) {
        int *items = static_cast<int *>(fives->Lock());
        fives->Unlock();
        ASSERT_TRUE(fives->Append(&items[0]));
    }
    int *items = static_cast<int *>(fives->Lock());
    fives->Unlock();
    ASSERT_TRUE(fives->Insert(0, &items[100]));
    EXPECT_EQ(Values(*fives), std::vector<int>(102, 5));
}

TEST(CVector, InitWithMemReplacesContentAndInitChangesItemSize)
{
    CVector vector(sizeof(int));
    const int values[] = {9, 8, 7, 6};
    EXPECT_TRUE(vector.InitWithMem(values, 4));
    EXPECT_EQ(Values(vector), (std::vector<int>{9, 8, 7, 6}));
    int *own = static_cast<int *>(vector.Lock());
    vector.Unlock();
    EXPECT_TRUE(vector.InitWithMem(own + 1, 2)) << "from its own storage";
    EXPECT_EQ(Values(vector), (std::vector<int>{8, 7}));
    EXPECT_FALSE(vector.InitWithMem(nullptr, 3));
    EXPECT_EQ(vector.Size(), 2u);
    EXPECT_TRUE(vector.InitWithMem(nullptr, 0));
    EXPECT_EQ(vector.Size(), 0u);

    ASSERT_TRUE(vector.InitWithMem(values, 2));
    EXPECT_FALSE(vector.Init(0)) << "items have a size";
    EXPECT_EQ(vector.Size(), 2u);
    EXPECT_TRUE(vector.Init(sizeof(double)));
    EXPECT_EQ(vector.Size(), 0u);
    EXPECT_EQ(vector.ItemSize(), sizeof(double));
    const double pi = 3.25;
    EXPECT_TRUE(vector.Append(&pi));
    double back = 0;
    EXPECT_TRUE(vector.Get(0, &back));
    EXPECT_EQ(back, pi);
}

TEST(CVector, AppendReserveAndResizeZeroNewItemsAndHugeRequestsFailCleanly)
{
    CVector vector(sizeof(int), CVECTOR_ZERO_NEW);
    int *room = static_cast<int *>(vector.AppendReserve(3));
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(room[0] | room[1] | room[2], 0);
    room[1] = 11;
    EXPECT_EQ(Values(vector), (std::vector<int>{0, 11, 0}));
    EXPECT_EQ(vector.AppendReserve(0), nullptr);
    EXPECT_EQ(vector.AppendReserve(UINT_MAX), nullptr) << "count overflows";
    EXPECT_EQ(vector.Size(), 3u);

    EXPECT_TRUE(vector.Resize(1));
    EXPECT_TRUE(vector.Resize(5));
    EXPECT_EQ(Values(vector), (std::vector<int>{0, 0, 0, 0, 0})) << "regrown items are zeroed again";
    vector.Set(4, &room[1]);
    EXPECT_TRUE(vector.Resize(0));
    EXPECT_EQ(vector.Size(), 0u);

    CVector huge(1 << 20);
    EXPECT_FALSE(huge.Resize(UINT_MAX)) << "4 TiB cannot be allocated";
    EXPECT_EQ(huge.Size(), 0u);
    EXPECT_EQ(huge.AppendReserve(UINT_MAX), nullptr);
    CVector bytes(1);
    ASSERT_TRUE(bytes.Resize(10));
    EXPECT_EQ(bytes.SizeHuge(), 10u);
    CVector zeroSized(0);
    EXPECT_EQ(zeroSized.ItemSize(), 1u) << "a zero item size means one byte";
    const char c = 'q';
    EXPECT_TRUE(zeroSized.Append(&c));
    EXPECT_EQ(zeroSized.SizeHuge(), 1u);
}

TEST(CVector, ZeroClearAndClone)
{
    std::unique_ptr<CVector> vector(IntsFrom({4, 5, 6}));
    CVector copy(1);
    EXPECT_TRUE(copy.Clone(*vector));
    EXPECT_EQ(copy.ItemSize(), sizeof(int));
    vector->Zero();
    EXPECT_EQ(Values(*vector), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(Values(copy), (std::vector<int>{4, 5, 6})) << "a deep copy";
    EXPECT_TRUE(copy.Clone(copy));
    EXPECT_EQ(Values(copy), (std::vector<int>{4, 5, 6}));
    vector->Clear();
    EXPECT_EQ(vector->Size(), 0u);
    EXPECT_TRUE(copy.Clone(*vector));
    EXPECT_EQ(copy.Size(), 0u);
}

TEST(CVector, LockedVectorRefusesToMove)
{
    std::unique_ptr<CVector> vector(IntsFrom({1, 2, 3}));
    int *items = static_cast<int *>(vector->Lock());
    ASSERT_NE(items, nullptr);
    int value = 9;
    EXPECT_FALSE(vector->Append(&value));
    EXPECT_FALSE(vector->Insert(0, &value));
    EXPECT_FALSE(vector->Resize(100));
    EXPECT_FALSE(vector->Resize(1));
    EXPECT_EQ(vector->AppendReserve(1), nullptr);
    EXPECT_FALSE(vector->InitWithMem(&value, 1));
    EXPECT_FALSE(vector->Init(sizeof(int)));
    CVector other(sizeof(int));
    EXPECT_FALSE(vector->Clone(other));
    // What does not move the items still works.
    EXPECT_TRUE(vector->Set(0, &value));
    EXPECT_EQ(items[0], 9);
    EXPECT_TRUE(vector->Remove(2));
    EXPECT_EQ(vector->Size(), 2u);

    EXPECT_EQ(vector->Lock(), items) << "locks nest";
    vector->Unlock();
    EXPECT_FALSE(vector->Append(&value)) << "still locked once";
    vector->Unlock();
    EXPECT_TRUE(vector->Append(&value));
    vector->Unlock();  // unbalanced unlock is ignored
    EXPECT_TRUE(vector->Append(&value));
    EXPECT_EQ(Values(*vector), (std::vector<int>{9, 2, 9, 9}));
}
