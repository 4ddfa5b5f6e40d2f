#!/usr/bin/env node
// What is missing is found out before anything is loaded that needs it.

const oldest = [18, 17];

function isTooOld(version) {
  const [major, minor] = version.split('.').map(Number);
  return major < oldest[0] || (major === oldest[0] && minor < oldest[1]);
}

function fail(message) {
  process.stderr.write('brvhost-preview: ' + message + '\n');
  process.exitCode = 1;
}

async function run() {
  if (isTooOld(process.versions.node)) {
    return fail('needs Node ' + oldest.join('.') + ' or later, and this is ' + process.versions.node);
  }
  let program;
  try {
    program = await import('../source/main.js');
  } catch (error) {
    if (error.code !== 'ERR_MODULE_NOT_FOUND' || !/Cannot find package/.test(error.message)) throw error;
    const folder = decodeURIComponent(new URL('..', import.meta.url).pathname);
    return fail(
      'the packages that it needs are not installed; `npm ci --omit=dev --prefix ' + folder + '` installs them',
    );
  }
  process.exitCode = await program.main(process.argv.slice(2));
}

run();
