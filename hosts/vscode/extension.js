// Runs the listwright command and puts the list, or the lines, that it prints into the text.
'use strict';

const { spawn } = require('child_process');
const fs = require('fs');
const os = require('os');
const path = require('path');
const vscode = require('vscode');

/** Why nothing was done, in words for the user. */
class Refusal extends Error {
  constructor(message, ...buttons) {
    super(message);
    this.buttons = buttons;
  }
}

const kOpenSettings = 'Open Settings';

/** The dialog's process, while one is open. */
let dialog;

function activeEditor() {
  const editor = vscode.window.activeTextEditor;
  if (!editor) throw new Refusal('There is no text to put a list into.');
  return editor;
}

/** A file name from the settings, which may begin with `~`. */
function expanded(name) {
  return name.replace(/^~(?=[/\\]|$)/, os.homedir());
}

function settings(document) {
  return vscode.workspace.getConfiguration('listwright', document);
}

/** The folder that the dialog uses. */
function stepFolder(document) {
  const given = settings(document).get('stepFolder');
  if (given) return expanded(given);
  if (process.platform === 'win32') return path.join(process.env.APPDATA, 'Listwright');
  const data = process.env.XDG_DATA_HOME || '';
  const base = path.isAbsolute(data) ? data : path.join(os.homedir(), '.local', 'share');
  return path.join(base, 'listwright');
}

/** One indentation of the text, in blanks. */
function indentation(editor) {
  const { indentSize, tabSize } = editor.options;
  return ['--indent', String(Math.min(Number(indentSize || tabSize) || 4, 255))];
}

/** What the settings ask for, and else what the text looks like. */
function dialogOptions(editor) {
  const given = settings(editor.document).get('dialogOptions');
  const { fontFamily, fontSize } = vscode.workspace.getConfiguration('editor', editor.document);
  // Where the first family is not installed, the dialog takes one of a fixed pitch as well.
  const family = fontFamily.split(',')[0].trim().replace(/^(["'])(.*)\1$/, '$2');
  const points = Math.max(1, Math.min(Math.round(fontSize * 0.75), 200));
  const folder = settings(editor.document).get('stepFolder');
  return [
    indentation(editor),
    ['--font', family],
    ['--font-size', String(points)],
    ...(folder ? [['--step-folder', expanded(folder)]] : []),
  ].filter(([name]) => !given.includes(name)).flat().concat(given.map(String));
}

/**
 * Runs the command over a text. The program that runs goes to `started`.
 * @returns its exit status, null where it was ended, and what it has printed
 */
function run(args, input, started = () => {}) {
  const command = expanded(settings().get('command'));
  return new Promise((resolve, reject) => {
    // A folder that nobody else writes to, because Windows looks for the command there first.
    const program = spawn(command, args, { cwd: path.dirname(process.execPath) });
    const printed = [];
    const said = [];
    program.stdout.on('data', (piece) => printed.push(piece));
    program.stderr.on('data', (piece) => said.push(piece));
    program.stdin.on('error', () => {});
    program.on('error', () => reject(new Refusal(
      `Cannot run "${command}". Install Listwright ("make install" in its source folder), or say ` +
      'in the setting listwright.command where the command is.', kOpenSettings)));
    program.on('close', (status) => resolve({
      status,
      printed: Buffer.concat(printed).toString(),
      said: Buffer.concat(said).toString().trim() || `listwright ended with status ${status}`,
    }));
    started(program);
    program.stdin.end(input);
  });
}

function printedBy({ status, printed, said }) {
  if (status !== 0) throw new Refusal(said);
  return printed;
}

/** What the command makes of a text. */
async function filtered(args, input = '') {
  return printedBy(await run(args, input));
}

/** The list that the user builds; empty where the dialog is closed without Insert. */
function listOfDialog(editor) {
  if (dialog) throw new Refusal('The Listwright dialog is open already.');
  const progress = {
    location: vscode.ProgressLocation.Notification,
    title: 'The list comes from the Listwright dialog.',
    cancellable: true,
  };
  return vscode.window.withProgress(progress, async (_, token) => {
    try {
      const result = await run(['--exact', ...dialogOptions(editor)], '', (program) => {
        dialog = program;
        token.onCancellationRequested(() => program.kill());
      });
      if (token.isCancellationRequested || result.status === 1) return '';
      return printedBy(result);
    } finally {
      dialog = undefined;
    }
  });
}

/** The step file that the user picks; undefined without one. */
async function pickStepFile(document, title) {
  const folder = stepFolder(document);
  const found = await fs.promises.readdir(folder).catch(() => []);
  const items = found.filter((name) => /\.step$/i.test(name))
    .sort((a, b) => a.localeCompare(b))
    .map((name) => ({ label: name.replace('.step', ''), file: path.join(folder, name) }));
  const browse = { label: '$(folder-opened) Browse…', alwaysShow: true };
  const picked = await vscode.window.showQuickPick(
    [...items, browse], { title, placeHolder: 'Step file' });
  if (picked !== browse) return picked && picked.file;
  const files = await vscode.window.showOpenDialog(
    { title, defaultUri: vscode.Uri.file(folder), filters: { 'Step files': ['step'] } });
  return files && files[0].fsPath;
}

/** Where a span of a text is after a change; a span that is changed itself ends behind the change. */
function moved([start, end], { rangeOffset, rangeLength, text }) {
  if (end < rangeOffset || (end === rangeOffset && start < end)) return [start, end];
  const shift = text.length - rangeLength;
  if (rangeOffset + rangeLength <= start) return [start + shift, end + shift];
  return [rangeOffset + text.length, rangeOffset + text.length];
}

/** A list with all of its lines as far in as the one that the range begins in. */
function indented(document, range, list) {
  const before = document.lineAt(range.start).text.slice(0, range.start.character);
  const depth = /^[ \t]*/.exec(before)[0];
  let text = list.replace(/\r\n?/g, '\n').replace(/\n(?!\n|$)/g, `\n${depth}`);
  // Whole lines stay whole lines.
  const ofLines = !range.isSingleLine && range.end.character === 0;
  if (ofLines && !text.endsWith('\n')) text += '\n';
  const textFollows = range.end.isBefore(document.lineAt(range.end).range.end);
  return text.endsWith('\n') && textFollows ? text + depth : text;
}

/** Makes the edits in one step of Undo; false where the text takes none, which nobody else says. */
async function applied(editor, edits) {
  const { document } = editor;
  const { version } = document;
  await editor.edit((edit) => {
    for (const { range, text } of edits) edit.replace(range, text);
  });
  return document.version !== version;
}

/** Puts a list in place of the spans of a text, in one step of Undo. */
async function replaceSpans(document, column, spans, list) {
  const editor = await vscode.window.showTextDocument(document, column);
  const ranges = spans.map((span) => new vscode.Range(...span.map((o) => document.positionAt(o))));
  const stayed = ranges.length === editor.selections.length &&
    ranges.every((range, i) => range.isEqual(editor.selections[i]));
  const edits = ranges.map((range) => ({ range, text: indented(document, range, list) }));
  const done = await applied(editor, edits);
  if (done && stayed) {
    editor.selections = editor.selections.map(({ end }) => new vscode.Selection(end, end));
  }
  return done;
}

/** Puts the list that `makeList` makes where the carets are now, whatever is edited meanwhile. */
async function insert(makeList) {
  const editor = activeEditor();
  const { document, viewColumn } = editor;
  let spans = editor.selections.map(({ start, end }) =>
    [document.offsetAt(start), document.offsetAt(end)]);
  const follower = vscode.workspace.onDidChangeTextDocument((event) => {
    if (event.document !== document) return;
    for (const change of event.contentChanges) spans = spans.map((span) => moved(span, change));
  });
  try {
    const list = await makeList(editor);
    if (!list) return;
    const done = !document.isClosed &&
      await replaceSpans(document, viewColumn, spans, list).catch(() => false);
    if (done) return;
    await vscode.env.clipboard.writeText(list);
    throw new Refusal('The text cannot be changed any more; the list is on the clipboard.');
  } finally {
    follower.dispose();
  }
}

async function listOfStepFile(editor) {
  const file = await pickStepFile(editor.document, 'Insert Step File');
  return file && filtered(['--exact', ...indentation(editor), file]);
}

/**
 * The lines that are to change, block by block: those of a selection, as a text of their own, or
 * all lines with the one in the middle of what changes. Selections that touch are one block,
 * because a column of them is meant as one.
 */
function blocksOf({ document, selections }) {
  const blocks = [];
  for (const { isEmpty, start, end } of [...selections].sort((a, b) => a.start.compareTo(b.start))) {
    const last = end.character === 0 && end.line > start.line ? end.line - 1 : end.line;
    const before = blocks[blocks.length - 1];
    if (isEmpty) {
      blocks.push({ first: 0, last: document.lineCount - 1, line: start.line + 1 });
    } else if (before && !before.line && start.line <= before.last + 1) {
      before.last = Math.max(before.last, last);
    } else {
      blocks.push({ first: start.line, last });
    }
  }
  return blocks;
}

/** How many elements, `most` or fewer, are alike at the ends of two lists or texts. */
function alikeAtEnd(a, b, most) {
  let count = 0;
  while (count < most && a[a.length - 1 - count] === b[b.length - 1 - count]) ++count;
  return count;
}

/** The edits that make new lines of old ones. What ends as before stays, and the carets in it. */
function differences(first, before, after) {
  if (before.length !== after.length) {
    const most = Math.min(before.length, after.length) - 1;
    let top = 0;
    while (top < most && before[top] === after[top]) ++top;
    const bottom = alikeAtEnd(before, after, most - top);
    const last = before.length - bottom - 1;
    const range = new vscode.Range(first + top, 0, first + last, before[last].length);
    return [{ range, text: after.slice(top, after.length - bottom).join('\n') }];
  }
  return before.map((old, i) => {
    const ends = alikeAtEnd(old, after[i], Math.min(old.length, after[i].length));
    const range = new vscode.Range(first + i, 0, first + i, old.length - ends);
    return { range, text: after[i].slice(0, after[i].length - ends) };
  }).filter(({ range, text }) => text !== '' || !range.isEmpty);
}

/** Changes the selected lines, or those around the carets, in one step of Undo. */
async function changeLines(option, title) {
  const editor = activeEditor();
  const { document } = editor;
  const options = [option];
  if (title) {
    const file = await pickStepFile(document, title);
    if (!file) return;
    options.push(...indentation(editor), file);
  }
  const { version } = document;
  const edits = new Map();
  for (const { first, last, line } of blocksOf(editor)) {
    const before = [];
    for (let i = first; i <= last; ++i) before.push(document.lineAt(i).text);
    const around = line ? ['--line', String(line)] : [];
    const after = (await filtered([...options, ...around], before.join('\n'))).split(/\r\n|\r|\n/);
    // Two carets in one paragraph change the same lines in the same way.
    for (const edit of differences(first, before, after)) edits.set(edit.range.start.line, edit);
  }
  if (edits.size === 0) throw new Refusal('There is nothing to change here.');
  const done = document.version === version && await applied(editor, edits.values());
  if (!done) throw new Refusal('The text has changed meanwhile; the lines stay as they are.');
}

const commands = {
  insertList: () => insert(listOfDialog),
  insertStepFile: () => insert(listOfStepFile),
  numberLines: () => changeLines('--number'),
  numberLinesWithStepFile: () => changeLines('--number', 'Number Selected Lines with Step File'),
  renumberLists: () => changeLines('--renumber'),
  removeNumbers: () => changeLines('--unnumber'),
};

async function tell(problem) {
  if (!(problem instanceof Refusal)) throw problem;
  const pressed = await vscode.window.showWarningMessage(problem.message, ...problem.buttons);
  if (pressed === kOpenSettings) {
    vscode.commands.executeCommand('workbench.action.openSettings', 'listwright.command');
  }
}

exports.activate = ({ subscriptions }) => {
  for (const [name, command] of Object.entries(commands)) {
    subscriptions.push(vscode.commands.registerCommand(
      `listwright.${name}`, async () => command().catch(tell)));
  }
};

exports.deactivate = () => dialog && dialog.kill();
