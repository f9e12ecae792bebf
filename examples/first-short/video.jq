# Gives the project of a recording its first video: cuts, shots, captions, sound.
# Times are seconds on the recording, so that everything stays with what is said when cuts move.
def id(n): "00000000-0000-4000-8000-" + ("000000000000\(n)" | .[-12:]);
def line(n): id(100 + n);

.sources[0].id as $source
| def cut(n; from; to; role): {id: id(200 + n), source: $source, start: from, "end": to, role: role};
  def title(n; length; values): {
    id: id(200 + n), source: id(900 + n), start: 0, "end": length,
    generator: {playbook: "stock.generator.title", version: 1, values: values}
  };
  def overlay(n; at; length; playbook; version; values): {
    id: id(500 + n), source: $source, at: at, length: length, playbook: playbook, version: version, values: values
  };
  def shot(n; at; layout; more): {id: id(300 + n), source: $source, at: at, layout: layout, zoom: 1} + more;

.sources[0].note = "A mountain run with one heart left; the golden feather is caught at 21.6 s."
| .sources[0].framing = {
    content: {x: 0, y: 0, w: 0.58, h: 1},
    face: {x: 0.5845, y: 0.387, w: 0.411, h: 0.606},
    split: 0.5,
    eyes: {x: 0.79, y: 0.68}
  }
| .clips[0].name = "The golden feather"
| .clips[0].rating = 1
| .lastVideo = 1
| .videos = [{
    id: id(1), number: 1, title: "One heart, one jump", aspect: "9:16",
    cuts: [
      cut(1; 10.0; 13.0; "hook"),
      title(6; 1.4; {title: "One heart.", subtitle: "One jump.", colour: "2A1650", letters: "FFD23F"}),
      cut(2; 14.4; 16.7; "stakes"), cut(3; 18.1; 24.5; "the jump"),
      cut(4; 25.6; 28.2; "reaction"), cut(5; 33.0; 36.2; "goodbye")
    ],
    look: {
      shots: [
        shot(1; 10.0; "split"; {zoom: 1.08, move: "push"}),
        shot(2; 14.4; "face"; {zoom: 1.12, move: "push", transition: "whip"}),
        shot(3; 18.1; "content"; {focus: 0.42, zoom: 1.15, move: "push", transition: "dip"}),
        shot(4; 20.95; "content"; {focus: 0.42, zoom: 1.2}),
        shot(5; 21.6; "content"; {focus: 0.42, move: "shake", transition: "flash"}),
        shot(6; 22.45; "split"; {zoom: 1.15, transition: "blur"}),
        shot(7; 25.6; "face"; {zoom: 1.1, move: "drift", transition: "whip"}),
        shot(8; 27.0; "split"; {}),
        shot(9; 33.0; "split"; {transition: "dip", split: 0.42})
      ],
      captions: {
        on: true,
        style: {base: "pop", bigFill: "FFD23F", y: 0.74, exit: "fade"},
        lines: [
          {line: line(2), pieces: [
            {text: "Wait!", until: 0.22, big: true}, {text: "Is that a golden feather", until: 0.66, stress: [3, 4]}, {text: "up there? 👀"}]},
          {line: line(3), pieces: [{text: "Nobody has ever", until: 0.5, stress: [0]}, {text: "made that jump."}]},
          {line: line(4), pieces: [
            {text: "Okay.", until: 0.36}, {text: "Three,", until: 0.57}, {text: "two,", until: 0.77}, {text: "one.", big: true}]},
          {line: line(5), pieces: [{text: "Yes!", until: 0.33, big: true}, {text: "I actually got it!", stress: [1]}]},
          {line: line(6), pieces: [{text: "Chat, did you see that?", until: 0.62, stress: [3]}, {text: "Clip it! 🔥", big: true}]},
          {line: line(8), pieces: [{text: "Thank you all!", until: 0.45}, {text: "ขอบคุณครับ 🎉", big: true}]}
        ]
      },
      overlays: [
        overlay(1; 10.0; 2.6; "stock.hook"; 2; {title: "He has ONE heart left 💔", y: "0.14"}),
        overlay(2; 14.75; 1.8; "stock.sticker"; 3; {sticker: "😱", x: "0.78", y: "0.24", size: "240", tilt: "8"}),
        overlay(3; 21.6; 0.5; "stock.impact"; 2; {}),
        overlay(4; 21.7; 2.4; "stock.confetti"; 1; {y: "0.42"}),
        overlay(5; 33.4; 2.6; "stock.hearts"; 1; {})
      ],
      sounds: [{id: id(401), file: "media/whoosh.wav", source: $source, at: 20.6, volume: 0.8}],
      music: [{id: id(402), file: "media/music.m4a", source: $source, at: 10.0, volume: 0.6}],
      mix: {duck: 0.4}
    }
  }]
