#include "LedgerTypes.h"

#include <array>

namespace lanzhou::LedgerTypes {

namespace {

const std::array<LedgerType, custom>& predefined()
{
    static const std::array<LedgerType, custom> types{{
        {QStringLiteral("账户"), QStringLiteral("余额")},
        {QStringLiteral("物品"), QStringLiteral("存量")},
        {QStringLiteral("客户"), QStringLiteral("应收款")},
        {QStringLiteral("项目"), QStringLiteral("数额")},
    }};
    return types;
}

} // namespace

LedgerType labels(int option)
{
    return predefined().at(size_t(option));
}

int find(const QString& itemLabel, const QString& quantityLabel)
{
    for (int i = 0; i < custom; ++i) {
        const LedgerType& type = predefined().at(size_t(i));
        if (type.itemLabel == itemLabel && type.quantityLabel == quantityLabel)
            return i;
    }
    return -1;
}

} // namespace lanzhou::LedgerTypes
