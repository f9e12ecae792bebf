#include "core/ai/Toolkit.h"

namespace murbo::Toolkit {

namespace {

// In the order of their ids.
constexpr Kit all[] = {
    {Kit::ID::transcribe, "Transcribe",
     "Lines from what is said: on this computer for free, or with Scribe, better in Thai.", Kit::Scope::clips,
     true, false, "Right-click a clip ▸ Transcribe, or tick it in Add Files and Add Stream", "Transcribed",
     ""},
    {Kit::ID::describeClips, "Describe Clips",
     "A title and a summary for each clip, so the rest can find things without reading everything.",
     Kit::Scope::clips, true, true,
     "Right-click a clip ▸ Describe Clip, or tick it in Add Files and Add Stream", "Described",
     "describe clips {picked}: read their lines and notes, and give each a title, a summary of two or three "
     "sentences, its energy and kind, the line that sums it up, and what you could not make out."},
    {Kit::ID::notesFromFrames, "Notes from Frames",
     "Words for a stretch where nobody speaks, written from a few of its frames.", Kit::Scope::stretch, true,
     false, "Transcript tab: pick a range ▸ Notes from Frames", "Noted", ""},
    {Kit::ID::fixWords, "Fix Words",
     "The recognizer's mishearings corrected, game terms and English or Japanese inside Thai, kept as "
     "spoken.",
     Kit::Scope::clips, true, true, "Right-click a clip ▸ Fix Words", "Checked",
     "fix the words of {picked}: correct what the recognizer misheard (game terms, English or Japanese "
     "inside Thai), keeping the words as spoken."},
    {Kit::ID::ideas, "Ideas",
     "Videos worth making from the footage, as proposals; nothing is made until you say.",
     Kit::Scope::project, true, true,
     "The inspector's Ask tab: say what to look for, or nothing ▸ Find Ideas; they wait in Project ▸ Ideas",
     "Found ideas",
     "find videos worth making in {picked}: read the clips' descriptions, read the lines of the ones that "
     "look promising, and propose up to three videos, each with a title, its hook, why it would work and its "
     "cuts by line id. Make none until I say."},
    {Kit::ID::cutToInstruction, "Cut to Instruction", "One video cut to your words, from the clips it needs.",
     Kit::Scope::project, true, true, "The inspector's Ask tab: say what you want ▸ Make Video", "Cut",
     "make a video from {picked} to this: (say what you want). Read the clips' descriptions, read the lines "
     "you need, and cut it by line id."},
    {Kit::ID::reviseCuts, "Revise Cuts",
     "The open video's cuts changed to your words, the rest and your trims kept.", Kit::Scope::video, true,
     true, "The inspector's Ask tab, with a video open: say what to change ▸ Revise", "Revised",
     "revise the cuts of {picked} to this: (say what you want). Change only what that needs and keep my "
     "trims."},
    {Kit::ID::firstPass, "First Pass",
     "A video from clips or an idea, then its look, then its sound, each its own undo step.",
     Kit::Scope::clips, true, true,
     "Project ▸ Ideas: an idea ▸ First Pass, or right-click clips ▸ First Pass", "Given a first pass",
     "give {picked} a first pass: cut a video from it, then its look (shots, punch-ins, big captions, "
     "overlays), then its sound. Tell me in a few lines what you did and what you were unsure of."},
    {Kit::ID::look, "Look", "Shots, punch-ins, the punchlines' captions big and overlays, from what is said.",
     Kit::Scope::video, true, true, "The video's inspector ▸ AI ▸ Look", "Framed",
     "give {picked} its look: shots by line (split for talking over the action, content for what happens on "
     "screen, face for reactions), punch-ins on the strongest moments, one to three punchlines big, and "
     "overlays where they help."},
    {Kit::ID::sound, "Sound", "Sounds on the moments that want one, from your sound library.",
     Kit::Scope::video, true, true, "The video's inspector ▸ AI ▸ Sound", "Given its sound",
     "give {picked} its sound: a few sounds on visual moments (a switch, a punch-in, a big caption, a loud "
     "moment), not on every one."},
    {Kit::ID::makePlaybook, "Make a Playbook",
     "A new sticker, card or layout, drafted in rounds and saved when you allow it.", Kit::Scope::library,
     false, true, "Toolkit ▸ Make a Playbook ▸ Copy Prompt", "Made a playbook",
     "make a playbook for {picked}: (say what it should look like). Draft it, draw it over the video to "
     "check it, and save it to the library when it looks right."},
};

}

std::span<const Kit> kits() {
    return all;
}

const Kit& kit(Kit::ID id) {
    return all[static_cast<std::size_t>(id)];
}

}
