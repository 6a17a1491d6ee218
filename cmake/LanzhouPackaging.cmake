# What `cmake --install` puts into the prefix besides the program (src/app installs that), and the
# Debian package built from it by CPack. Tests and benchmarks are never installed.

install(FILES "${PROJECT_SOURCE_DIR}/resources/lanzhou.desktop"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
foreach(size IN LISTS LANZHOU_ICON_SIZES)
  install(FILES "${LANZHOU_ICON_DIR}/lanzhou-${size}.png"
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME lanzhou.png)
endforeach()
install(FILES "${LANZHOU_ICON_DIR}/lanzhou.svg"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lanzhou)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Lanzhou Software Studio")
set(CPACK_PACKAGE_CONTACT "Lanzhou Software Studio <service@lanzhou-jizhang.cn>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "岚舟云记账 - desktop bookkeeping client for shared ledgers")
set(CPACK_PACKAGE_DESCRIPTION
    "Operators of a shared ledger post increases and decreases against named
items (+10, -5 计划外), list and correct the journal, and draw period
summaries and balance lists that export to CSV. One program serves as a
stock book, a cash book, a receivables book or a project-spending book.
Ledgers live in an embedded SQLite file or on a shared PostgreSQL or
SQL Server database.

岚舟云记账：多人共用的云账本。按物品（账户、客户、项目）
记录增减，查询和修改流水账，生成汇总表和存量表并导出为
CSV 文件。账本可存放在本机 SQLite 文件中，也可存放在共用的
PostgreSQL 或 SQL Server 数据库上。")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${LANZHOU_WEB_SITE}")
# The libraries the program links come from dpkg-shlibdeps; the Qt plugins it loads at run time
# (database drivers, the display platform), the CJK fonts of its lists and Qt's Chinese button
# texts are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt6sql6-sqlite, libqt6sql6-psql, libqt6sql6-odbc, qt6-qpa-plugins, fonts-noto-cjk, qt6-translations-l10n")
# ODBC drivers for PostgreSQL and SQL Server, for ledgers on a shared server reached through ODBC.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "odbc-postgresql, tdsodbc")

include(CPack)
