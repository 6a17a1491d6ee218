# Sourced by the test and benchmark commands: starts a throwaway PostgreSQL server on 127.0.0.1
# with its own data folder and port, exports LANZHOU_TEST_POSTGRES, and stops it on exit.
pg_bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
pg_dir=$(mktemp -d /tmp/lanzhou-pg.XXXXXX)
pg_port=${LANZHOU_TEST_PG_PORT:-55432}
as_pg=()
if [ "$(id -u)" -eq 0 ]; then
  chown postgres:postgres "$pg_dir"
  as_pg=(runuser -u postgres --)
fi
stop_pg() {
  "${as_pg[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$pg_dir"
}
trap stop_pg EXIT
"${as_pg[@]}" "$pg_bin/initdb" -D "$pg_dir/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
"${as_pg[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -l "$pg_dir/server.log" -w \
  -o "-p $pg_port -k $pg_dir -c listen_addresses=127.0.0.1 -c fsync=off -c synchronous_commit=off" start >/dev/null
export LANZHOU_TEST_POSTGRES="postgresql://postgres@127.0.0.1:$pg_port/postgres"
