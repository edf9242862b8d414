// Uses VS Code in a browser as a person does: drive.js ADDRESS. Each line of standard input is a
// word and what it is about; each has one line for an answer.
'use strict';

const readline = require('readline');
const puppeteer = require('puppeteer-core');

const kLongest = 60000;
const kBox = '.quick-input-widget input';
const kRows = '.quick-input-widget .monaco-list-row';
const kButtons = `${kRows}, .monaco-menu .action-label, .monaco-button`;
const kMessages = '.notifications-toasts .notification-list-item-message';
const kOpen = 'The list comes from the Listwright dialog.';
let page;
let before;

const shown = (selector) => page.waitForSelector(selector, { visible: true });
const texts = (selector) =>
  page.$$eval(selector, (all) => all.map((one) => one.innerText.replace(/\s+/g, ' ').trim()));

async function messages() {
  return (await texts(kMessages)).filter((text) => text !== kOpen).join(' ');
}

async function state() {
  return JSON.stringify([await texts('.editor-instance .view-line'), await messages()]);
}

async function until(reached) {
  const last = Date.now() + kLongest;
  while (!await reached()) {
    if (Date.now() > last) throw new Error(`never: ${reached}`);
    await new Promise((resolve) => { setTimeout(resolve, 50); });
  }
}

async function press(keys) {
  for (const chord of keys.split(' ')) {
    const names = chord.split('+');
    for (const name of names) await page.keyboard.down(name);
    for (const name of names.reverse()) await page.keyboard.up(name);
  }
}

/**
 * Clicks the entry or the button that has the text; menus are in a shadow tree. VS Code draws a list
 * anew while it still searches, so an entry can be gone before it is clicked.
 */
async function click(text) {
  await until(async () => {
    for (const one of await page.$$(`>>> :is(${kButtons})`)) {
      const label = await one.evaluate((element) => element.innerText.split('\n')[0].trim());
      if (label !== text) continue;
      before = await state();
      // A menu takes no click that is shorter.
      return one.click({ delay: 150 }).then(() => true, () => false);
    }
    return false;
  });
}

/** Types into the box that the keys open; they are lost where VS Code does not listen yet. */
async function ask(keys, typed) {
  await until(async () => {
    await press(keys);
    return page.waitForSelector(kBox, { visible: true, timeout: 2000 }).catch(() => false);
  });
  await page.keyboard.type(typed);
}

const words = {
  press,
  async type(text) {
    before = await state();
    await page.keyboard.type(text);
    await words.done();
  },
  async open(file) {
    const name = file.replace(/.*\//, '');
    await ask('Control+p', file);
    await click(name);
    await shown(`.editor-instance [data-uri$="/${name}"] .view-line`);
  },
  async go(place) {
    await ask('Control+g', place);
    await press('Enter');
    await page.waitForSelector(kBox, { hidden: true });
  },
  async run(title) {
    await ask('F1', title);
    await click(title);
  },
  /** The palette has only others. */
  async none(title) {
    await ask('F1', title);
    await until(async () => /^No matching|similar commands/.test((await texts(kRows))[0]));
    await press('Escape');
  },
  click,
  /** The command has changed the text, or said something. */
  done: () => until(async () => await state() !== before),
  closed: () => until(async () => !(await texts(kMessages)).includes(kOpen)),
  async undo() {
    await press('Control+z');
    await until(async () => await state() === before);
    await press('Control+y');
    await until(async () => await state() !== before);
  },
  async said() {
    const all = await messages();
    if (all) await press('Escape');
    await until(async () => !await messages());
    return all;
  },
};

async function main(address) {
  const browser = await puppeteer.launch({
    executablePath: '/usr/bin/chromium',
    headless: false,
    defaultViewport: null,
    handleSIGTERM: false,
    ignoreDefaultArgs: ['--enable-automation'],
    args: [`--app=${address}`, '--no-sandbox', '--test-type', '--no-first-run',
      '--window-size=1000,760', '--window-position=0,0'],
  });
  [page] = await browser.pages();
  page.setDefaultTimeout(kLongest);
  // Until the extension is there.
  await until(async () => {
    await press('Escape');
    await ask('F1', 'Listwright');
    return page.waitForFunction((rows) => document.querySelector(rows)?.innerText
      .startsWith('Listwright:'), { timeout: 2000 }, kRows).catch(() => false);
  });
  await press('Escape');
  for await (const line of readline.createInterface({ input: process.stdin })) {
    const [word, ...about] = line.split(' ');
    try {
      console.log(await words[word](about.join(' ')) || '');
    } catch (problem) {
      console.log(`FAILED ${line}: ${problem.message}`);
    }
  }
  await browser.close();
}

process.on('SIGTERM', () => process.exit(1));
main(...process.argv.slice(2));
