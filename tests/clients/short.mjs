// An AI app makes a Short of a recording, over HTTP or over the bridge, with the protocol's own SDK.
//
//   node short.mjs DOOR PROJECT http|bridge
import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { createInterface } from 'node:readline';
import { Client } from '@modelcontextprotocol/sdk/client/index.js';
import { StdioClientTransport } from '@modelcontextprotocol/sdk/client/stdio.js';
import { StreamableHTTPClientTransport } from '@modelcontextprotocol/sdk/client/streamableHttp.js';

const [door, project, way] = process.argv.slice(2);
const mostCalls = 8;
const mostTokens = 15_000;
const bytesAToken = 4;

// ------------------------------------------------------------------------ the owner --
const window = spawn(door, [project], { stdio: ['pipe', 'pipe', 'inherit'] });
const printed = createInterface({ input: window.stdout })[Symbol.asyncIterator]();
const nextLine = async () => (await printed.next()).value;
const port = await nextLine();

async function owner(...line) {
    window.stdin.write(JSON.stringify(line) + '\n');
    const answer = JSON.parse(await nextLine());
    assert.equal(answer.ok, true, `${line}: ${answer.error}`);
    return answer;
}

// -------------------------------------------------------------------------- the app --
const client = new Client({ name: 'app', version: '1' });
await client.connect(way === 'http'
    ? new StreamableHTTPClientTransport(new URL(`http://127.0.0.1:${port}/mcp`))
    : new StdioClientTransport({ command: door, args: ['bridge', port] }));

let calls = 0;
let bytes = 0;
async function call(name, args = {}) {
    const result = await client.callTool({ name, arguments: args });
    const text = result.content[0].text;
    calls += 1;
    bytes += Buffer.byteLength(JSON.stringify(result));
    assert.equal(result.isError, false, `${name}: ${text}`);
    return text;
}
const has = (text, ...words) => words.forEach(word => assert.ok(text.includes(word), `“${word}” is not in: ${text}`));

assert.deepEqual((await client.ping()), {});
const { tools } = await client.listTools();
const { prompts } = await client.listPrompts();
assert.equal(tools.length, 22);
assert.equal(prompts.length, 9);
const prompt = await client.getPrompt({ name: prompts[0].name, arguments: { picked: 'C01' } });
has(prompt.messages[0].content.text, 'In Murbo, ', 'C01');
await assert.rejects(client.getPrompt({ name: 'nothing' }), /No such prompt/);
await assert.rejects(client.listResources(), /not support|not found/i);

// A Short: read, cut, framed, captioned, with a sound, and read again.
has(await call('overview'), 'talk-seven-people.mp4', 'C01');
has(await call('read_clips', { clips: ['C01'] }), 'C01.01', 'lay blue by c two again', 'C01.07');
has(await call('make_video', {
    title: 'Blue and white',
    cuts: [{ from: 'C01.01', to: 'C01.01', role: 'setup' }, { from: 'C01.03', to: 'C01.04', role: 'build' },
        { from: 'C01.07', to: 'C01.07', role: 'payoff' }],
}), 'V1 “Blue and white”', '3 cuts');
has(await call('set_shots', {
    video: 'V1',
    shots: [{ at: 'C01.01', layout: 'content' }, { at: 'C01.03', layout: 'face', zoom: 1.2, move: 'push' },
        { at: 'C01.99', layout: 'split' }],
}), 'V1 has 2 shots.', 'Left out: C01.99');
has(await call('list_sounds', { search: 'boom' }), 'sfx-boom.flac');
has(await call('set_sounds', { video: 'V1', sounds: [{ file: 'sfx-boom.flac', at: 'C01.07', volume: 1.5 }] }),
    'V1 has 1 sounds.');
has(await call('set_captions', {
    video: 'V1', big: ['C01.07'], breaks: [{ line: 'C01.03', pieces: ['place white', 'in j three please'] }],
}), 'V1: 1 big, 0 hidden, 1 broken by hand.');
has(await call('read_video', { video: 'V1' }), 'place white / in j three please', 'sfx-boom.flac', 'zoom 1.20');
const tokens = Math.ceil(bytes / bytesAToken);
assert.ok(calls <= mostCalls && tokens <= mostTokens, `${calls} calls, ${tokens} tokens`);
assert.deepEqual((await owner('state')).value.undo.slice(0, 4),
    ['Captions by Claude', 'Sounds by Claude', 'Frame by Claude', 'Make Video']);

// What the owner does is kept: the app hears of it, and can't take it back.
has(await call('what_changed', { video: 'V1' }), 'Nothing in V1 changed');
await owner('set', 'openVideo', 'V1');
assert.equal((await owner('rename', 'V1', 'Mine')).step, 'Rename Video');
has(await call('what_changed', { video: 'V1' }), 'Title: “Blue and white” → “Mine”');
has(await call('undo_my_last'), 'Nothing of yours to take back');
await owner('undo');
await owner('trim', 'cut 1', true, 0.2); // and does not end it
has(await call('rename_video', { video: 'V1', title: 'Theirs' }), 'V1 is “Theirs”.');
assert.deepEqual((await owner('state')).value.undo.slice(0, 2), ['Rename Video', 'Drag']);
has(await call('undo_my_last'), 'Took back “Rename Video”.');
assert.equal((await owner('state')).value.undo[0], 'Drag');

// Many at once, each gets its own answer.
const many = await Promise.all(tools.map((_, at) =>
    client.callTool({ name: 'search_lines', arguments: { query: `nothing ${at}` } })));
many.forEach((result, at) => has(result.content[0].text, `“nothing ${at}”`));
const failed = await client.callTool({ name: 'read_video', arguments: { video: 'V9' } });
assert.equal(failed.isError, true);
has(failed.content[0].text, 'There is no video V9');

await client.close();
window.stdin.end();
const code = await new Promise(ended => window.on('close', ended));
assert.equal(code, 0);
console.log(`${way}: a Short in ${mostCalls} calls and ${tokens} tokens; tools and prompts in ` +
    `${Math.ceil(JSON.stringify([tools, prompts]).length / bytesAToken)} tokens`);
