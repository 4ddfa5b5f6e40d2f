// Chromium without a window, driven through a pipe.

import { spawn, spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

const program = process.env.CHROMIUM ?? 'chromium';

// Why tests in a browser are skipped; false where they are not.
export const noBrowser = spawnSync(program, ['--version']).status === 0 ? false : `${program} is not installed`;

let browser = null;

// A page that shows the file, at the place that a fragment names. All pages are in one browser, which closeBrowser
// ends.
export async function openPage(path, { width = 1400, height = 900, fragment = '' } = {}) {
  browser ??= new Browser();
  const { targetId } = await browser.call('Target.createTarget', { url: 'about:blank' });
  const { sessionId } = await browser.call('Target.attachToTarget', { targetId, flatten: true });
  const page = new Page(browser, targetId, sessionId);
  await page.resize(width, height);
  await page.call('Page.enable');
  await page.call('Network.enable');
  const loaded = browser.event('Page.loadEventFired', sessionId);
  await page.call('Page.navigate', { url: `${pathToFileURL(path).href}#${fragment}` });
  await loaded;
  return page;
}

export async function closeBrowser() {
  await browser?.close();
  browser = null;
}

class Browser {
  #profile = mkdtempSync(join(tmpdir(), 'preview-browser-'));
  #child;
  #calls = new Map();
  #events = new Map();
  #rest = '';
  #last = 0;
  requests = new Map();

  constructor() {
    const options = ['--headless', '--no-sandbox', '--disable-gpu', '--no-first-run', '--remote-debugging-pipe'];
    this.#child = spawn(program, [...options, `--user-data-dir=${this.#profile}`], {
      stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'],
    });
    this.#child.stdio[4].setEncoding('utf8').on('data', (text) => this.#receive(text));
    this.#child.on('exit', () => this.#calls.forEach(({ reject }) => reject(new Error('the browser has ended'))));
  }

  call(method, params = {}, sessionId = undefined) {
    const id = ++this.#last;
    this.#child.stdio[3].write(`${JSON.stringify({ id, method, params, sessionId })}\0`);
    return new Promise((resolve, reject) => this.#calls.set(id, { resolve, reject, method }));
  }

  event(method, sessionId) {
    return new Promise((resolve) => this.#events.set(`${method} ${sessionId}`, resolve));
  }

  async close() {
    const ended = new Promise((resolve) => this.#child.once('close', resolve));
    this.call('Browser.close').catch(() => {});
    await ended;
    rmSync(this.#profile, { recursive: true, force: true, maxRetries: 5 });
  }

  #note(sessionId, url) {
    if (!this.requests.has(sessionId)) this.requests.set(sessionId, []);
    this.requests.get(sessionId).push(url);
  }

  #receive(text) {
    const messages = (this.#rest + text).split('\0');
    this.#rest = messages.pop();
    for (const message of messages) this.#take(JSON.parse(message));
  }

  #take({ id, method, params, result, error, sessionId }) {
    if (method === 'Network.requestWillBeSent') this.#note(sessionId, params.request.url);
    if (id === undefined) return this.#events.get(`${method} ${sessionId}`)?.(params);
    const call = this.#calls.get(id);
    this.#calls.delete(id);
    if (error === undefined) return call.resolve(result);
    call.reject(new Error(`${call.method}: ${error.message}`));
  }
}

class Page {
  #browser;
  #target;
  #session;

  constructor(browser, target, session) {
    this.#browser = browser;
    this.#target = target;
    this.#session = session;
  }

  // The addresses that it has asked for.
  get requests() {
    return this.#browser.requests.get(this.#session);
  }

  call(method, params) {
    return this.#browser.call(method, params, this.#session);
  }

  resize(width, height) {
    return this.call('Emulation.setDeviceMetricsOverride', { width, height, deviceScaleFactor: 1, mobile: false });
  }

  // The value of a function of the page's, which takes values that JSON can have.
  async run(work, ...args) {
    const expression = `(${work})(...${JSON.stringify(args)})`;
    const { result, exceptionDetails } = await this.call('Runtime.evaluate', {
      expression,
      returnByValue: true,
      awaitPromise: true,
    });
    if (exceptionDetails !== undefined) throw new Error(exceptionDetails.exception.description);
    return result.value;
  }

  async press(key) {
    const named = { Tab: 9, Enter: 13 };
    const text = key in named ? (key === 'Enter' ? '\r' : undefined) : key;
    const event = { key, text, windowsVirtualKeyCode: named[key] ?? key.toUpperCase().charCodeAt(0) };
    await this.call('Input.dispatchKeyEvent', { type: 'keyDown', ...event });
    await this.call('Input.dispatchKeyEvent', { type: 'keyUp', ...event });
  }

  media(media, features = []) {
    return this.call('Emulation.setEmulatedMedia', { media, features });
  }

  async picture() {
    const { data } = await this.call('Page.captureScreenshot', { format: 'png' });
    return Buffer.from(data, 'base64');
  }

  async pdf() {
    const { data } = await this.call('Page.printToPDF', { printBackground: true, preferCSSPageSize: true });
    return Buffer.from(data, 'base64');
  }

  close() {
    return this.#browser.call('Target.closeTarget', { targetId: this.#target });
  }
}
